// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "spectrum/spectrumwindow.h"
#include "tests/support/documentwindow.h"
#include "tests/support/picturehost.h"
#include "tests/support/spectrumtest.h"
#include "tests/support/testpicture.h"
#include "tests/support/traps.h"
#include "tests/support/windowtest.h"

#include <QClipboard>
#include <QFile>
#include <QGuiApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QLabel>
#include <QMdiSubWindow>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QTextEdit>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

const char* const caffeineTarget = "/cgi/cbook.cgi?Struct=C58082&Type=Color";

#ifdef __SANITIZE_ADDRESS__
constexpr bool memoryCanBeMeasured = false; // freed memory is kept for a while
#else
constexpr bool memoryCanBeMeasured = true;
#endif

/// The most memory the program ever held, in MiB; 0 where that cannot be told.
qint64 mostMemory()
{
    QFile file(u"/proc/self/status"_s);
    if (!memoryCanBeMeasured || !file.open(QIODevice::ReadOnly))
        return 0;
    const QByteArrayList lines = file.readAll().split('\n');
    for (const QByteArray& line : lines) {
        if (line.startsWith("VmHWM:"))
            return line.simplified().split(' ').value(1).toLongLong() / 1024;
    }
    return 0;
}

/// A PNG file whose header claims 60,000 by 60,000 pixels.
QByteArray absurdlyLargePng()
{
    return QByteArray::fromHex("89504e470d0a1a0a0000000d494844520000ea600000ea60080600000080d275"
                               "420000001149444154789c63601805a360140c77000003e80001b3a6d3460000"
                               "000049454e44ae426082");
}

} // namespace

/// Data beyond every sensible limit: the editor takes them or declines them, and lives on.
class TestLimits : public WindowTest
{
    Q_OBJECT

private Q_SLOTS:
    void sparseLeavesTheRestOfTheDocumentAlone_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("left");
        const auto unchanged = [](const char* name, const QString& typed) {
            QTest::newRow(name) << typed << typed;
        };
        unchanged("more points than memory holds", u"0 1\n1e9 2"_s);
        unchanged("more points than can be counted", u"-1e308 1\n1e308 2"_s);
        unchanged("to infinity", u"10 1\ninf 2"_s);
        unchanged("from minus infinity", u"-inf 1\n10 2"_s);
        unchanged("not a number first", u"nan 1\n10 2"_s);
        unchanged("not a number last", u"10 1\nnan 2"_s);
        unchanged("no point at all", u"energy intensity\n# 1 2 3"_s);
        QTest::newRow("backwards without end") << u"1e308 1\n-1e308 2"_s << QString();
        QTest::newRow("one energy a thousand times") << u"10 1\n"_s.repeated(1000) << QString();
        QTest::newRow("infinite intensity") << u"10 -inf\n10.002 inf"_s << u"10.001 nan"_s;
        QTest::newRow("step less than the numbers tell apart")
            << u"1e17 1\n1e17 2"_s << u"100000000000000000.000 nan"_s;
    }

    void sparseLeavesTheRestOfTheDocumentAlone()
    {
        QFETCH(const QString, typed);
        QFETCH(const QString, left);
        open({u"one"_s, u"two"_s});
        const SpectrumWindow* spectrum = TestSupport::spectra(*window).constFirst();
        const auto* field = TestSupport::pointEditor(*spectrum);
        TestSupport::setPoints(*spectrum, typed);
        const QJsonObject before = savedWithoutPoints();

        const Deadline deadline;
        QTest::mouseClick(TestSupport::child<QPushButton>(*spectrum, "buttonSparse"),
                          Qt::LeftButton);
        QCOMPARE(field->toPlainText(), left);
        QCOMPARE(savedWithoutPoints(), before);
    }

    void sparseGridOfAMillionPointsIsMade()
    {
        open({u"one"_s});
        const SpectrumWindow* spectrum = TestSupport::spectra(*window).constFirst();
        const auto* field = TestSupport::pointEditor(*spectrum);
        TestSupport::setPoints(*spectrum, u"0 0\n1000.0015 1"_s);
        const Deadline deadline;
        QTest::mouseClick(TestSupport::child<QPushButton>(*spectrum, "buttonSparse"),
                          Qt::LeftButton);
        QCOMPARE(field->blockCount(), 1'000'000);
        QVERIFY2(mostMemory() < 2048, QByteArray::number(mostMemory()).constData());
    }

    void longTitleIsNotMeasuredWhole()
    {
        const QString endless = u"photoelectron "_s.repeated(30'000).trimmed();
        open({endless});
        const QMdiSubWindow* subWindow = TestSupport::subWindows(*window).constFirst();
        SpectrumWindow* spectrum = TestSupport::spectra(*window).constFirst();
        QCOMPARE(spectrum->windowTitle(), endless);
        QCOMPARE(subWindow->windowTitle(), endless.first(1000));
        auto* title = TestSupport::child<QTextEdit>(*spectrum, "lineEditTitle");
        title->setPlainText(u"short"_s);
        QCOMPARE(subWindow->windowTitle(), u"short"_s);
        title->setPlainText(u"shorter"_s);
        QCOMPARE(subWindow->windowTitle(), u"shorter"_s);
    }

    void longCreationDateIsShownByItsBeginning()
    {
        open({u"one"_s});
        const SpectrumWindow* spectrum = TestSupport::spectra(*window).constFirst();
        auto* label = TestSupport::child<QLabel>(*spectrum, "labelCreated");
        const QString thousand = u"2001-01-01"_s.repeated(100);
        label->setText(thousand);
        const int width = label->sizeHint().width();
        label->setText(thousand.repeated(3000));
        QCOMPARE(label->text().size(), 3'000'000);
        QVERIFY2(label->sizeHint().width() < 2 * width,
                 QByteArray::number(label->sizeHint().width()).constData());
        QVERIFY(!label->grab(QRect(0, 0, 100, 20)).isNull());
        QVERIFY2(mostMemory() < 700, QByteArray::number(mostMemory()).constData());
    }

    void manyDatasetsOpenInBoundedMemory()
    {
        const int count = qEnvironmentVariableIsSet("KORVELA_DATASETS")
                              ? qEnvironmentVariableIntValue("KORVELA_DATASETS")
                              : 60;
        QStringList titles;
        for (int i = 0; i < count; ++i)
            titles.append(QString::number(i));
        open(titles);
        QCOMPARE(TestSupport::subWindows(*window).size(), count);
        QStringList shown = TestSupport::spectrumTitles(*window);
        QCOMPARE(shown.removeDuplicates(), 0);
        qInfo("%d datasets: %lld MiB", count, static_cast<long long>(mostMemory()));
        QVERIFY2(mostMemory() < 2048, QByteArray::number(mostMemory()).constData());
    }

    void pastedMegabyteIsKept_data()
    {
        QTest::addColumn<QByteArray>("fieldName");
        QTest::addColumn<QString>("key");
        QTest::newRow("single line") << QByteArray("lineEditSpecies") << u"Name"_s;
        QTest::newRow("several lines") << QByteArray("textEditAliases") << u"Aliases"_s;
    }

    void pastedMegabyteIsKept()
    {
        QFETCH(const QByteArray, fieldName);
        QFETCH(const QString, key);
        open({u"one"_s});
        const QJsonObject before = saved();
        const QString text = u"benzene "_s.repeated(131'072).trimmed();
        QGuiApplication::clipboard()->setText(text);

        const Deadline deadline(std::chrono::seconds(120));
        auto* field = TestSupport::child<QTextEdit>(*window, fieldName.constData());
        QVERIFY(TestSupport::showActive(*window));
        QTest::mouseClick(field->viewport(), Qt::LeftButton);
        QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(field, Qt::Key_V, Qt::ControlModifier);
        QTest::keyClick(field, Qt::Key_Tab);
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit - a.json *"_s);

        QJsonObject expected = before;
        QJsonObject species = before[u"Species"].toObject();
        species.insert(key, text);
        expected.insert(u"Species"_s, species);
        QVERIFY(saved() == expected);
        QVERIFY(window->openEntry(sandbox->path(u"a.json"_s)));
        QCOMPARE(field->toPlainText(), text);
    }

    void absurdlyLargePictureInAFileIsLeftOut()
    {
        const QJsonObject file{
            {u"Type"_s, u"Species v1"_s},
            {u"Species"_s, QJsonObject{{u"Name"_s, u"benzene"_s},
                                       {u"StructuralFormula"_s,
                                        QString::fromLatin1(absurdlyLargePng().toBase64())}}},
            {u"Dataset1"_s, TestSupport::datasetTitled(u"one"_s)}};
        QVERIFY(window->openEntry(sandbox->write(u"a.json"_s, QJsonDocument(file).toJson())));
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit - a.json"_s);
        QCOMPARE(TestSupport::cell(*window, SpeciesModel::Name), u"benzene"_s);
        QCOMPARE(TestSupport::spectrumTitles(*window), QStringList{u"one"_s});
        QVERIFY(window->findChild<SpeciesModel*>()->image().isNull());
        QVERIFY(TestSupport::child<QLabel>(*window, "imageLabel")->pixmap().isNull());
        QVERIFY2(mostMemory() < 2048, QByteArray::number(mostMemory()).constData());
    }

    void absurdlyLargePictureFromTheNetworkIsRefused()
    {
        PictureHost host;
        const TrustInPictureHost trust;
        host.serve(caffeineTarget, absurdlyLargePng());
        openForDownload(host);
        const QJsonObject before = saved();
        dialogs->expectBox(QMessageBox::Critical, u"Image Error"_s,
                           u"Failed to load the image data."_s);
        clickDownload();
        QTRY_VERIFY_WITH_TIMEOUT(dialogs->passed(), TestSupport::patience);
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit - a.json"_s);
        QCOMPARE(saved(), before);
    }

    void answerWithoutEndIsCutOffSoonAfterTheLimit()
    {
        PictureHost host;
        const TrustInPictureHost trust;
        host.serveEndlessly(caffeineTarget);
        openForDownload(host);
        const QJsonObject before = saved();
        dialogs->expectBox(QMessageBox::Critical, u"Download Failed"_s,
                           u"Failed to download the image."_s);
        clickDownload();
        const auto* reply = window->findChild<QNetworkReply*>();
        QVERIFY(reply != nullptr);
        auto error = QNetworkReply::NoError;
        connect(reply, &QNetworkReply::errorOccurred, this,
                [&error](QNetworkReply::NetworkError occurred) { error = occurred; });
        QTRY_VERIFY_WITH_TIMEOUT(dialogs->passed(), TestSupport::patience);
        QCOMPARE(error, QNetworkReply::OperationCanceledError);
        constexpr qint64 limit = 32 * 1024 * 1024;
        QVERIFY(host.endlessBytesSent() > limit);
        QVERIFY2(host.endlessBytesSent() < 2 * limit,
                 QByteArray::number(host.endlessBytesSent()).constData());
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit - a.json"_s);
        QCOMPARE(saved(), before);
    }

private:
    void open(const QStringList& titles)
    {
        const QByteArray text = TestSupport::speciesFile(u"benzene"_s, titles);
        QVERIFY(window->openEntry(sandbox->write(u"a.json"_s, text)));
        QCOMPARE(TestSupport::spectra(*window).size(), titles.size());
    }

    void openForDownload(const PictureHost& host)
    {
        const QJsonObject file{
            {u"Type"_s, u"Species v1"_s},
            {u"Species"_s,
             QJsonObject{
                 {u"Name"_s, u"caffeine"_s},
                 {u"CAS"_s, u"58-08-2"_s},
                 {u"StructuralFormula"_s,
                  QString::fromLatin1(
                      TestSupport::encoded(TestSupport::plainPicture(Qt::yellow)).toBase64())}}}};
        QVERIFY(window->openEntry(sandbox->write(u"a.json"_s, QJsonDocument(file).toJson())));
        window->findChild<QNetworkAccessManager*>()->setProxy(host.proxy());
    }

    void clickDownload()
    {
        QTest::mouseClick(TestSupport::child<QPushButton>(*window, "buttonDownload"),
                          Qt::LeftButton);
    }

    [[nodiscard]] QJsonObject saved() const
    {
        TestSupport::trigger(*window, "actionSaveSpecies");
        return QJsonDocument::fromJson(sandbox->read(u"a.json"_s)).object();
    }

    /// The saved document without the points of its first spectrum.
    [[nodiscard]] QJsonObject savedWithoutPoints() const
    {
        QJsonObject file = saved();
        QJsonObject first = file[u"Dataset1"].toObject();
        first.remove(u"E"_s);
        first.remove(u"I"_s);
        file.insert(u"Dataset1"_s, first);
        return file;
    }
};

QTEST_MAIN(TestLimits)
#include "tst_limits.moc"
