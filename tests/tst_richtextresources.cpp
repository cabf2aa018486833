// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/mainwindow.h"
#include "spectrum/spectrumwindow.h"
#include "support/messages.h"
#include "tests/support/dialogscript.h"
#include "tests/support/sandbox.h"
#include "tests/support/traps.h"
#include "widgets/singlelinetextedit.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMessageBox>
#include <QMimeData>
#include <QTest>
#include <QTextEdit>

#include <initializer_list>
#include <memory>
#include <utility>

namespace {

void addTexts(std::initializer_list<std::pair<const char*, const char*>> texts)
{
    for (const auto& [name, pattern] : texts)
        QTest::newRow(name) << QString::fromLatin1(pattern);
}

/// Texts that make an ordinary field read the file FILE, or the address URL.
void workingTraps()
{
    QTest::addColumn<QString>("pattern");
    addTexts({
        {"picture by address", "a<img src=\"URL\">b"},
        {"picture by path", "a<img src=\"FILE\">b"},
        {"picture by path without quotes", "a<img src=FILE>b"},
        {"picture of a size", "a<img src=\"FILE\" width=\"20\" height=\"20\">b"},
        {"picture in upper case", "a<IMG SRC='URL'>b"},
        {"raised picture", "a<sup><img src=\"FILE\"></sup>b"},
        {"linked style sheet by address",
         "<head><link rel=\"stylesheet\" type=\"text/css\" href=\"URL\"></head>a"},
        {"linked style sheet by path",
         "<head><link rel=\"stylesheet\" type=\"text/css\" href=\"FILE\"></head>a"},
        {"imported style sheet", "<style>@import url(\"FILE\");</style>a"},
    });
}

/// All of those, and what only other readers of HTML would fall for.
void allTraps()
{
    workingTraps();
    addTexts({
        {"background of the body", "<body background=\"FILE\">a</body>"},
        {"background of a table", "<table background=\"FILE\"><tr><td>a</table>"},
        {"background by style", "<p style=\"background-image:url(FILE)\">a</p>"},
        {"background of the body by style", "<body style=\"background-image:url(URL)\">a</body>"},
        {"list marker", "<ul style=\"list-style-image:url(FILE)\"><li>a</ul>"},
    });
}

QString filledIn(QString pattern, const FifoTrap& trap)
{
    return pattern.replace(QLatin1String("FILE"), trap.path())
        .replace(QLatin1String("URL"), trap.url());
}

/// Whatever can make a field look at what its text names.
void exercise(QTextEdit& field)
{
    field.resize(300, 100);
    field.ensurePolished();
    field.document()->adjustSize();
    QVERIFY(field.document()->size().isValid());
    QVERIFY(!field.grab().isNull());
    QVERIFY(field.sizeHint().isValid());
    field.selectAll();
    QVERIFY(!field.grab().isNull());
    field.setPlainText(field.toPlainText());
    field.undo();
}

} // namespace

/// Nothing that a text names is ever read: a text may come from anybody's file.
class TestRichTextResources : public QObject
{
    Q_OBJECT

    std::unique_ptr<Sandbox> sandbox;
    std::unique_ptr<FifoTrap> trap;

private Q_SLOTS:
    void init()
    {
        sandbox = std::make_unique<Sandbox>();
        trap = std::make_unique<FifoTrap>(sandbox->path(QStringLiteral("trap")));
        if (!trap->isSet())
            QSKIP("there are no pipes here");
    }

    void cleanup()
    {
        QGuiApplication::clipboard()->clear();
        trap.reset();
        sandbox.reset();
    }

    void trapCatchesAnOrdinaryField_data() { workingTraps(); }

    void trapCatchesAnOrdinaryField()
    {
        QFETCH(const QString, pattern);
        QTextEdit field;
        field.setHtml(filledIn(pattern, *trap));
        exercise(field);
        QVERIFY(trap->sprung());
    }

    void multiLineFieldReadsNothing_data() { allTraps(); }

    void multiLineFieldReadsNothing()
    {
        QFETCH(const QString, pattern);
        CleanTextEdit field;
        field.setCleanedHtml(filledIn(pattern, *trap));
        exercise(field);
        QVERIFY(!trap->sprung());
        QVERIFY(field.toPlainText().contains(u'a'));
    }

    void singleLineFieldReadsNothing_data() { allTraps(); }

    void singleLineFieldReadsNothing()
    {
        QFETCH(const QString, pattern);
        SingleLineTextEdit field;
        field.setCleanedHtml(filledIn(pattern, *trap));
        exercise(field);
        QTest::keyClicks(&field, QStringLiteral("a"));
        QVERIFY(!trap->sprung());
        QVERIFY(field.toPlainText().contains(u'a'));
    }

    void copiedTextReadsNothing_data()
    {
        QTest::addColumn<bool>("singleLine");
        QTest::newRow("multi-line field") << false;
        QTest::newRow("single-line field") << true;
    }

    void copiedTextReadsNothing()
    {
        QFETCH(const bool, singleLine);
        const std::unique_ptr<CleanTextEdit> field =
            singleLine ? std::make_unique<SingleLineTextEdit>() : std::make_unique<CleanTextEdit>();
        QVERIFY(TestSupport::showActive(*field));
        // The picture stands far below what was painted and laid out so far.
        const QString lines = QStringLiteral("<p>a").repeated(5000);
        field->setCleanedHtml(lines + filledIn(QStringLiteral("<img src=\"FILE\">b"), *trap));
        QTest::keyClick(field.get(), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(field.get(), Qt::Key_C, Qt::ControlModifier);
        const QMimeData* copied = QGuiApplication::clipboard()->mimeData();
        QVERIFY(copied->text().startsWith(u'a'));
        for (const QString& format : copied->formats())
            (void)copied->data(format);
        QVERIFY(!trap->sprung());
    }

    void speciesFileReadsNothing()
    {
        const QString text =
            filledIn(QStringLiteral("a<img src=\"FILE\"><img src=\"URL\">"), *trap);
        QJsonObject species;
        for (const char* key : {"Name", "Aliases", "Formula", "InChI", "CAS", "PubChem", "AIE",
                                "VIE", "AIE_Comment", "VIE_Comment", "StructuralFormula"})
            species.insert(QLatin1String(key), text);
        QJsonObject dataset;
        for (const char* key :
             {"Title", "Uploader", "DOI", "FurtherRefs", "T", "FurtherComments", "CreatedDate",
              "FacilityDate", "Source", "Resolution", "Normalization"})
            dataset.insert(QLatin1String(key), text);
        dataset.insert(QStringLiteral("Type"), QStringLiteral("Spectrum v1"));
        const QJsonObject file{{QStringLiteral("Type"), QStringLiteral("Species v1")},
                               {QStringLiteral("Species"), species},
                               {QStringLiteral("Dataset1"), dataset}};
        const QString path =
            sandbox->write(QStringLiteral("species.json"), QJsonDocument(file).toJson());

        MainWindow window;
        QVERIFY(TestSupport::showActive(window));
        QVERIFY(window.loadSpecies(path));
        QVERIFY(!window.grab().isNull());
        const auto fields = window.findChildren<CleanTextEdit*>();
        int filled = 0;
        for (CleanTextEdit* field : fields) {
            QVERIFY(!field->grab().isNull());
            filled += field->toPlainText().startsWith(u'a') ? 1 : 0;
        }
        QVERIFY(filled > 15);
        QVERIFY(!trap->sprung());
    }

    void everyRichTextFieldOfTheWindowsRefusesToRead()
    {
        MainWindow window;
        QVERIFY(TestSupport::showActive(window));
        window.createNewSpectrumWindow();
        const auto fields = window.findChildren<QTextEdit*>();
        QVERIFY(fields.size() >= 20);
        for (QTextEdit* field : fields)
            QVERIFY2(qobject_cast<CleanTextEdit*>(field) != nullptr,
                     qPrintable(field->objectName()));
    }

    void messageBoxReadsNothing_data()
    {
        QTest::addColumn<int>("icon");
        QTest::newRow("information") << int(QMessageBox::Information);
        QTest::newRow("warning") << int(QMessageBox::Warning);
        QTest::newRow("critical") << int(QMessageBox::Critical);
    }

    void messageBoxReadsNothing()
    {
        QFETCH(const int, icon);
        const QString text = filledIn(QStringLiteral("<img src=\"FILE\"> <b>a</b>"), *trap);
        DialogScript dialogs;
        dialogs.expect([&](QWidget& dialog) {
            auto* box = qobject_cast<QMessageBox*>(&dialog);
            if (box == nullptr || box->textFormat() != Qt::PlainText || box->text() != text ||
                box->icon() != icon || box->windowTitle() != QLatin1String("Error") ||
                box->standardButtons() != QMessageBox::Ok)
                dialogs.complain(QStringLiteral("the box is another one"));
            if (dialog.grab().isNull())
                dialogs.complain(QStringLiteral("the box cannot be painted"));
            dialog.close();
        });
        const QString title = QStringLiteral("Error");
        if (icon == QMessageBox::Information)
            Messages::information(nullptr, title, text);
        else if (icon == QMessageBox::Warning)
            Messages::warning(nullptr, title, text);
        else
            Messages::critical(nullptr, title, text);
        QVERIFY2(dialogs.passed(), dialogs.report().constData());
        QVERIFY(!trap->sprung());
    }
};

QTEST_MAIN(TestRichTextResources)
#include "tst_richtextresources.moc"
