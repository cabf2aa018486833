// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QList>
#include <QPointer>
#include <QWidget>

#include <memory>

class LongWork;
class QDataWidgetMapper;
class QJsonObject;
class SpectrumModel;

namespace Ui {
class SpectrumWindow;
} // namespace Ui

/// Editor of one spectrum dataset: a metadata form, the points as text and their chart. The
/// spectrum type decides which model columns three of the fields edit, and what their captions say.
///
/// A window whose parent at construction is a ModifiableDocument tells it of every change, and of
/// its own closing.
class SpectrumWindow : public QWidget
{
    Q_OBJECT

public:
    /// An empty dataset, created today.
    explicit SpectrumWindow(QWidget* parent = nullptr);

    /// Shows the given spectrum record.
    explicit SpectrumWindow(const QJsonObject& dataset, QWidget* parent = nullptr);
    ~SpectrumWindow() override;

    /// The same, but the document does not learn of what happens until the window is returned. Null
    /// when the work was stopped.
    [[nodiscard]] static std::unique_ptr<SpectrumWindow> prepared(const QJsonObject& dataset,
                                                                  QWidget* document,
                                                                  LongWork& work);

    /// The dataset; owned by the window.
    [[nodiscard]] SpectrumModel* model() const;

    /// Lays out the chart before the window is painted for the first time.
    void fitChart();

public Q_SLOTS:
    void onSpectrumTypeChanged(int index);
    void updateWindowTitle();
    void onButtonCommaToDotClicked();

protected:
    void closeEvent(QCloseEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    struct MappingEntry
    {
        QWidget* widget;
        int section; ///< Model column.
        bool forSimulation;
        bool forExperiment;
        const char* propertyName;
    };

    enum class Telling { AtOnce, Later };

    SpectrumWindow(QWidget* parent, Telling telling);
    void showDataset();
    void arrange();
    void fillMappingTable();
    void connectSignals();
    void connectDocument();
    void buildChart();
    void applyMappings(int type);
    void setCaptions(int type);
    void submitLineSpectrum();
    void updateChart();
    void updateLineCount();

    std::unique_ptr<Ui::SpectrumWindow> ui;
    SpectrumModel* spectrumModel = nullptr;
    QDataWidgetMapper* mapper;
    QPointer<QObject> documentOwner; ///< The parent at construction.
    bool typeSwitchInProgress = false;
    QList<MappingEntry> mappingTable;
};
