// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "species/mystandarditemmodel.h"

#include <QJsonObject>
#include <QList>
#include <QPointF>
#include <QString>

#include <functional>
#include <optional>

class LongWork;
class QPlainTextEdit;
class QTimer;
class QWidget;

/// One spectrum dataset: its metadata in one row of cells, its points as text.
///
/// The points mirror a point editor, when there is one: typed edits are taken over once the typing
/// has paused for two seconds, and the model's own rewrites are put into the editor.
class SpectrumModel : public MyStandardItemModel
{
    Q_OBJECT

public:
    enum Column {
        Title,
        Uploader,
        Doi,
        Type, ///< Index of the spectrum type, see SpectrumType.
        FurtherRefs,
        Temperature, ///< K: of the source (experiment), vibrational (simulation).
        FurtherComments,
        CreatedDate, ///< yyyy-MM-dd
        FacilityDate,
        LineSpectrum, ///< Whether the points are sticks, not a curve.
        Source,
        Resolution, ///< meV
        Normalization,
        LevelOfTheory,
        ConvolutionFwhm, ///< meV
        Aie,             ///< 0-0 transition, eV
        ColumnCount
    };

    /// Indices of the spectrum types. All but the Franck-Condon simulation are experimental; an
    /// experiment uses the columns Source to Normalization, a simulation LevelOfTheory to Aie.
    enum SpectrumType { MsTpes, MsSpes, Tpes, Pes, FcSimulation, Pis };

    /// @p editor is not owned and may be null; it has to outlive the model's last use of it.
    explicit SpectrumModel(QObject* parent = nullptr, QPlainTextEdit* editor = nullptr);

    /// The points of the current lines: photon energy in eV, intensity in arbitrary units. Parsed
    /// at every call; text typed within the last two seconds is not yet part of it.
    [[nodiscard]] QList<QPointF> points() const;

    /// The point editor; null when there is none.
    [[nodiscard]] QPlainTextEdit* editor() const { return pointText; }

    /// Whether the editor holds typed text that is not yet taken over.
    [[nodiscard]] bool hasTypedPoints() const { return typed; }

    /// Replaces the points by those of the text, and the editor's text by it as it is.
    void setPointText(const QString& text);

    /// The spectrum record. Only the three columns that belong to the type are part of it.
    [[nodiscard]] QJsonObject toJson() const;

    /// Fills the model from a record and emits nothing. Points pass through six significant digits;
    /// missing keys and values of another type read as empty, 0 or false.
    void fromJson(const QJsonObject& record);

    /// The same for as many points as there may be. When the work was stopped, returns false, and
    /// what the model has is no record.
    [[nodiscard]] bool fromJson(const QJsonObject& record, LongWork& work);

Q_SIGNALS:
    /// The points, or how they are to be drawn, have changed.
    void spectrumDataChanged();

public Q_SLOTS:
    /// Scales the intensities so that the largest becomes 1000. The editor can undo it.
    void normalizeSpectrum();

    /// Resamples the points on a grid of 1 meV. Line spectra are refused with a message. The editor
    /// can undo it.
    void makePointsSparser();

private Q_SLOTS:
    void emitSpectrumDataChanged();

private:
    /// Makes new lines of points of others; nothing where they are to stay. Has no part in anything
    /// else: it is done in another thread, too.
    using Rewriting = std::function<std::optional<QString>(const QString& lines)>;

    void readCells(const QJsonObject& record);
    void rewritePoints(const QString& what, const Rewriting& rewriting);
    [[nodiscard]] QWidget* parentWidget() const;

    QTimer* updateTimer;
    QPlainTextEdit* pointText;
    bool writingPointText = false;
    bool typed = false;
    /// The point text without its empty lines. One string, not a list: splitting a long text costs
    /// many times what parsing it does.
    QString pointLines;
};
