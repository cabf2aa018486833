// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "spectrum/spectrummodel.h"

#include "spectrum/longtext.h"
#include "spectrum/pointrewrites.h"
#include "spectrum/pointtext.h"
#include "spectrum/spectrumpoints.h"
#include "support/cleanedhtml.h"
#include "support/longwork.h"
#include "support/messages.h"
#include "support/waitcursor.h"

#include <QJsonArray>
#include <QPlainTextEdit>
#include <QScopedValueRollback>
#include <QSignalBlocker>
#include <QTimer>

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

struct Field
{
    SpectrumModel::Column column{};
    QLatin1StringView key;
};

constexpr std::array<Field, 8> commonTexts{{
    {SpectrumModel::Title, "Title"_L1},
    {SpectrumModel::Uploader, "Uploader"_L1},
    {SpectrumModel::Doi, "DOI"_L1},
    {SpectrumModel::FurtherRefs, "FurtherRefs"_L1},
    {SpectrumModel::Temperature, "T"_L1},
    {SpectrumModel::FurtherComments, "FurtherComments"_L1},
    {SpectrumModel::CreatedDate, "CreatedDate"_L1},
    {SpectrumModel::FacilityDate, "FacilityDate"_L1},
}};

using TypeTexts = std::array<Field, 3>;
constexpr TypeTexts experimentTexts{{
    {SpectrumModel::Source, "Source"_L1},
    {SpectrumModel::Resolution, "Resolution"_L1},
    {SpectrumModel::Normalization, "Normalization"_L1},
}};
constexpr TypeTexts simulationTexts{{
    {SpectrumModel::LevelOfTheory, "LevelOfTheory"_L1},
    {SpectrumModel::ConvolutionFwhm, "ConvolutionFWHM"_L1},
    {SpectrumModel::Aie, "AIE"_L1},
}};

constexpr QLatin1StringView typeKey("SpectType");
constexpr QLatin1StringView lineSpectrumKey("LineSpectrum");
constexpr QLatin1StringView energyKey("E");
constexpr QLatin1StringView intensityKey("I");
/// Older records hold the points as one array of objects with "E" and "I".
constexpr QLatin1StringView pointObjectsKey("Spectrum");

/// JSON has no number for what "nan" and "inf" stand for; a reader would take its null for 0.
double finiteNumber(double coordinate)
{
    return std::isfinite(coordinate) ? coordinate : 0.0;
}

const TypeTexts& textsOfType(int type)
{
    return type == SpectrumModel::FcSimulation ? simulationTexts : experimentTexts;
}

const TypeTexts& textsOfOtherKind(int type)
{
    return type == SpectrumModel::FcSimulation ? experimentTexts : simulationTexts;
}

/// The points of a record; none when its two arrays differ in length.
QList<QPointF> pointsOf(const QJsonObject& record)
{
    QList<QPointF> points;
    if (record.contains(pointObjectsKey)) {
        const QJsonArray pointObjects = record.value(pointObjectsKey).toArray();
        points.reserve(pointObjects.size());
        for (const QJsonValueConstRef element : pointObjects) {
            const QJsonObject point = element.toObject();
            points.append(
                {point.value(energyKey).toDouble(), point.value(intensityKey).toDouble()});
        }
        return points;
    }

    const QJsonArray energies = record.value(energyKey).toArray();
    const QJsonArray intensities = record.value(intensityKey).toArray();
    if (energies.size() != intensities.size())
        return points;
    points.reserve(energies.size());
    for (qsizetype i = 0; i < energies.size(); ++i)
        points.append({energies.at(i).toDouble(), intensities.at(i).toDouble()});
    return points;
}

/// The point text of a record.
QString loadedText(const QJsonObject& record)
{
    // Loading rounds to six significant digits on purpose: the editor shows what a spectrometer can
    // tell apart, and what is shown is what is saved.
    return PointText::loadedText(pointsOf(record));
}

/// How many points the record has at most.
qsizetype sizeOf(const QJsonObject& record)
{
    return std::max(record.value(energyKey).toArray().size(),
                    record.value(pointObjectsKey).toArray().size());
}

} // namespace

SpectrumModel::SpectrumModel(QObject* parent, QPlainTextEdit* editor)
    : MyStandardItemModel(parent)
    , updateTimer(new QTimer(this))
    , pointText(editor)
{
    setRowCount(1);
    setColumnCount(ColumnCount);

    using namespace std::chrono_literals;
    updateTimer->setInterval(2000ms);
    updateTimer->setSingleShot(true);
    connect(updateTimer, &QTimer::timeout, this, &SpectrumModel::emitSpectrumDataChanged);

    if (pointText != nullptr) {
        connect(pointText, &QPlainTextEdit::textChanged, this, [this] {
            typed = !writingPointText;
            if (typed)
                updateTimer->start();
        });
    }
}

QList<QPointF> SpectrumModel::points() const
{
    return PointText::parse(pointLines);
}

QJsonObject SpectrumModel::toJson() const
{
    QJsonObject record;
    for (const Field& field : commonTexts)
        record.insert(field.key, CleanedHtml::withoutForeignTags(value(field.column).toString()));
    record.insert(lineSpectrumKey, value(LineSpectrum).toBool());

    const int type = value(Type).toInt();
    record.insert(typeKey, type);
    // These are deliberately written as the cells hold them, foreign tags included.
    for (const Field& field : textsOfType(type))
        record.insert(field.key, value(field.column).toString());

    QJsonArray energies;
    QJsonArray intensities;
    const QList<QPointF> currentPoints = points();
    for (const QPointF& point : currentPoints) {
        energies.append(finiteNumber(point.x()));
        intensities.append(finiteNumber(point.y()));
    }
    record.insert(energyKey, energies);
    record.insert(intensityKey, intensities);
    return record;
}

void SpectrumModel::fromJson(const QJsonObject& record)
{
    const QSignalBlocker blocker(this);
    readCells(record);
    pointLines = loadedText(record);
    if (pointText == nullptr)
        return;
    const QScopedValueRollback<bool> writing(writingPointText, true);
    LongText::setPlainText(*pointText, pointLines);
}

bool SpectrumModel::fromJson(const QJsonObject& record, LongWork& work)
{
    constexpr qsizetype fewPoints = 50'000; // for which no thread is worth it
    if (sizeOf(record) < fewPoints) {
        fromJson(record);
        return true;
    }
    auto lines = work.aside([record] { return loadedText(record); });
    if (!lines)
        return false;
    const QSignalBlocker blocker(this);
    readCells(record);
    pointLines = std::move(*lines);
    if (pointText == nullptr)
        return true;
    const QScopedValueRollback<bool> writing(writingPointText, true);
    return LongText::setPlainText(*pointText, pointLines, work.question());
}

void SpectrumModel::readCells(const QJsonObject& record)
{
    for (const Field& field : commonTexts)
        setValue(field.column, record.value(field.key).toString());
    setValue(LineSpectrum, record.value(lineSpectrumKey).toBool());

    const int type = record.value(typeKey).toInt();
    setValue(Type, type);
    for (const Field& field : textsOfType(type))
        setValue(field.column, record.value(field.key).toString());
    for (const Field& field : textsOfOtherKind(type))
        setValue(field.column, QVariant());
}

void SpectrumModel::normalizeSpectrum()
{
    rewritePoints(tr("Normalizing"), [](const QString& lines) -> std::optional<QString> {
        if (const auto scaled = SpectrumPoints::normalized(PointText::parse(lines)))
            return PointText::normalizedText(*scaled);
        return {};
    });
}

void SpectrumModel::makePointsSparser()
{
    if (value(LineSpectrum).toBool()) {
        Messages::warning(parentWidget(), u"Error"_s, u"Cannot resample line spectra"_s);
        return;
    }
    rewritePoints(tr("Resampling"), [](const QString& lines) -> std::optional<QString> {
        if (const auto resampled = SpectrumPoints::resampled(PointText::parse(lines)))
            return PointText::resampledText(*resampled);
        return {};
    });
}

void SpectrumModel::rewritePoints(const QString& what, const Rewriting& rewriting)
{
    constexpr qsizetype fewCharacters = 1'000'000; // for which no thread is worth it
    const WaitCursor waiting;
    LongWork work(parentWidget(), what);
    std::optional<QString> lines;
    if (pointLines.size() <= fewCharacters)
        lines = rewriting(pointLines);
    else if (auto made = work.aside([rewriting, text = pointLines] { return rewriting(text); }))
        lines = std::move(*made);
    if (!lines)
        return;
    const auto take = [this, &lines] { pointLines = *lines; };
    if (pointText == nullptr) {
        take();
    } else {
        const QScopedValueRollback<bool> writing(writingPointText, true);
        if (!PointRewrites::of(*pointText).replaceText(*lines, work.question(), take))
            return;
    }
    Q_EMIT spectrumDataChanged();
}

QWidget* SpectrumModel::parentWidget() const
{
    return qobject_cast<QWidget*>(QObject::parent());
}

void SpectrumModel::setPointText(const QString& text)
{
    pointLines = PointText::withoutEmptyLines(text);
    if (pointText != nullptr) {
        const QScopedValueRollback<bool> writing(writingPointText, true);
        LongText::setPlainText(*pointText, text);
    }
    Q_EMIT spectrumDataChanged();
}

void SpectrumModel::emitSpectrumDataChanged()
{
    const WaitCursor waiting;
    if (writingPointText) { // timers fire in long work, which may yet be stopped
        updateTimer->start();
    } else {
        typed = false;
        if (pointText != nullptr)
            pointLines = PointText::withoutEmptyLines(pointText->document()->toPlainText());
    }
    Q_EMIT spectrumDataChanged();
}
