// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/mainwindow.h"
#include "database/createdatabase.h"
#include "spectrum/spectrumwindow.h"
#include "support/messages.h"
#include "tests/support/documentwindow.h"
#include "tests/support/sandboxtest.h"
#include "tests/support/traps.h"
#include "widgets/singlelinetextedit.h"

#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QFileDialog>
#include <QHelpEvent>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QListWidget>
#include <QMessageBox>
#include <QMimeData>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QPointer>
#include <QPushButton>
#include <QTabBar>
#include <QTest>
#include <QTextEdit>
#include <QToolTip>
#include <QTreeView>
#include <QUrl>

#include <initializer_list>
#include <memory>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

void addTexts(std::initializer_list<std::pair<const char*, const char*>> texts)
{
    for (const auto& [name, pattern] : texts)
        QTest::newRow(name) << QString::fromLatin1(pattern);
}

/// Texts that make an ordinary field read FILE, which is a path, or URL, its address.
void workingTraps()
{
    QTest::addColumn<QString>("pattern");
    addTexts({
        {"picture by address", "a<img src=\"URL\">b"},
        {"picture by path", "a<img src=\"FILE\">b"},
        {"picture by path without quotes", "a<img src=FILE>b"},
        {"picture of a size", "a<img src=\"FILE\" width=\"20\" height=\"20\">b"},
        {"picture in upper case", "a<IMG SRC='URL'>b"},
        {"picture after a blank", "a< img src=\"FILE\">b"},
        {"raised picture", "a<sup><img src=\"FILE\"></sup>b"},
        {"linked style sheet by address",
         "<head><link rel=\"stylesheet\" type=\"text/css\" href=\"URL\"></head>a"},
        {"linked style sheet by path",
         "<head><link rel=\"stylesheet\" type=\"text/css\" href=\"FILE\"></head>a"},
        {"imported style sheet", "<style>@import url(\"FILE\");</style>a"},
        {"background of the body", "<body background=\"FILE\">a</body>"},
        {"background of a table", "<table background=\"FILE\"><tr><td>a</table>"},
        {"background by style", "<p style=\"background-image:url(FILE)\">a</p>"},
        {"background of the body by style", "<body style=\"background-image:url(URL)\">a</body>"},
    });
}

/// All of those, and what only other readers of HTML would fall for.
void allTraps()
{
    workingTraps();
    addTexts({
        {"list marker", "<ul style=\"list-style-image:url(FILE)\"><li>a</ul>"},
        {"picture of another host", "a<img src=\"HOST\">b"},
        {"style sheet of another host", "<head><link rel=\"stylesheet\" href=\"HOST\"></head>a"},
        {"imported style sheet of another host", "<style>@import url(\"HOST\");</style>a"},
        {"background of another host", "<body background=\"HOST\">a</body>"},
    });
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

/// Rests the cursor on a place of the widget until its tip would show, and closes the tip.
void restCursor(QWidget& widget, const QPoint& place)
{
    QHelpEvent rest(QEvent::ToolTip, place, widget.mapToGlobal(place));
    QApplication::sendEvent(&widget, &rest);
    QToolTip::hideText();
}

/// Paints the window and rests the cursor on all that can be seen in it.
void lookAtEverything(QWidget& window)
{
    QVERIFY(!window.grab().isNull());
    // Watched: a tip that is still open ends with the next one.
    QList<QPointer<QWidget>> widgets;
    for (QWidget* widget : window.findChildren<QWidget*>())
        widgets.append(widget);
    for (QWidget* widget : std::as_const(widgets)) {
        if (widget == nullptr || !widget->isVisible())
            continue;
        restCursor(*widget, widget->rect().center());
        if (const auto* tabs = qobject_cast<QTabBar*>(widget)) {
            for (int tab = 0; tab < tabs->count(); ++tab)
                restCursor(*widget, tabs->tabRect(tab).center());
        }
        if (const auto* view = qobject_cast<QAbstractItemView*>(widget)) {
            const QModelIndex root = view->rootIndex();
            for (int row = 0; row < view->model()->rowCount(root); ++row)
                restCursor(*view->viewport(),
                           view->visualRect(view->model()->index(row, 0, root)).center());
        }
    }
}

} // namespace

/// Nothing that a text names is ever read: a text may come from anybody's file.
class TestRichTextResources : public SandboxTest
{
    Q_OBJECT

    std::unique_ptr<FifoTrap> trap;
    std::unique_ptr<LoopbackTrap> host;

private Q_SLOTS:
    void init() override
    {
        SandboxTest::init();
        trap = std::make_unique<FifoTrap>(sandbox->path(u"trap"_s));
        host = std::make_unique<LoopbackTrap>();
        if (!trap->isSet())
            QSKIP("there are no pipes here");
        QVERIFY(host->isSet());
    }

    void cleanup() override
    {
        host.reset();
        trap.reset();
        SandboxTest::cleanup();
    }

    void trapCatchesAnOrdinaryField_data() { workingTraps(); }

    void trapCatchesAnOrdinaryField()
    {
        QFETCH(const QString, pattern);
        QTextEdit field;
        field.setHtml(filledIn(pattern));
        exercise(field);
        QVERIFY(trap->sprung());
    }

    void trapCatchesAnOrdinaryLabel()
    {
        QLabel label(fileName());
        QVERIFY(!label.grab().isNull());
        QVERIFY(trap->sprung());
    }

    void trapCatchesAnOrdinaryTip()
    {
        QWidget widget;
        widget.setToolTip(fileName());
        QVERIFY(TestSupport::showActive(widget));
        lookAtEverything(widget);
        restCursor(widget, {});
        QVERIFY(trap->sprung());
    }

    void hostNoticesARequest()
    {
        QNetworkAccessManager manager;
        const std::unique_ptr<QNetworkReply> reply(manager.get(QNetworkRequest(QUrl(host->url()))));
        QTRY_VERIFY(host->sprung());
    }

    void multiLineFieldReadsNothing_data() { allTraps(); }

    void multiLineFieldReadsNothing()
    {
        QFETCH(const QString, pattern);
        CleanTextEdit field;
        field.setCleanedHtml(filledIn(pattern));
        exercise(field);
        QVERIFY(nothingWasRead());
        QVERIFY(field.toPlainText().contains(u'a'));
    }

    void singleLineFieldReadsNothing_data() { allTraps(); }

    void singleLineFieldReadsNothing()
    {
        QFETCH(const QString, pattern);
        SingleLineTextEdit field;
        field.setCleanedHtml(filledIn(pattern));
        exercise(field);
        QTest::keyClicks(&field, u"a"_s);
        QVERIFY(nothingWasRead());
        QVERIFY(field.toPlainText().contains(u'a'));
    }

    void pastedTextReadsNothing_data() { allTraps(); }

    void pastedTextReadsNothing()
    {
        QFETCH(const QString, pattern);
        for (const bool singleLine : {false, true}) {
            const std::unique_ptr<CleanTextEdit> field = makeField(singleLine);
            QVERIFY(TestSupport::showActive(*field));
            auto* copied = new QMimeData;
            copied->setHtml(filledIn(pattern));
            copied->setText(filledIn(pattern));
            QGuiApplication::clipboard()->setMimeData(copied);
            QTest::keyClick(field.get(), Qt::Key_V, Qt::ControlModifier);
            QVERIFY(field->toPlainText().contains(u'a'));
            exercise(*field);
            // Pasted markup is text, and becomes markup when the entry is opened again.
            field->setCleanedHtml(field->cleanedHtml());
            exercise(*field);
            QVERIFY(nothingWasRead());
        }
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
        const std::unique_ptr<CleanTextEdit> field = makeField(singleLine);
        QVERIFY(TestSupport::showActive(*field));
        // The picture stands far below what was painted and laid out so far.
        const QString lines = u"<p>a"_s.repeated(5000);
        field->setCleanedHtml(lines + filledIn(u"<img src=\"FILE\">b"_s));
        QTest::keyClick(field.get(), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(field.get(), Qt::Key_C, Qt::ControlModifier);
        const QMimeData* copied = QGuiApplication::clipboard()->mimeData();
        QVERIFY(copied->text().startsWith(u'a'));
        for (const QString& format : copied->formats())
            (void)copied->data(format);
        QVERIFY(nothingWasRead());
    }

    void speciesFileReadsNothing()
    {
        QJsonObject species;
        for (const char* key : {"Name", "Aliases", "Formula", "InChI", "CAS", "PubChem", "AIE",
                                "VIE", "AIE_Comment", "VIE_Comment", "StructuralFormula"})
            species.insert(QLatin1StringView(key), everyTrap());
        const QJsonObject file{{u"Type"_s, u"Species v1"_s},
                               {u"Species"_s, species},
                               {u"Dataset1"_s, datasetOfTraps()}};
        const QString path = sandbox->write(u"species.json"_s, QJsonDocument(file).toJson());

        MainWindow window;
        QVERIFY(TestSupport::showActive(window));
        QVERIFY(window.openEntry(path));
        lookAtEverything(window);
        const auto fields = window.findChildren<CleanTextEdit*>();
        int filled = 0;
        for (CleanTextEdit* field : fields) {
            QVERIFY(!field->grab().isNull());
            filled += field->toPlainText().startsWith(u'a') ? 1 : 0;
        }
        QVERIFY(filled > 15);
        QVERIFY(nothingWasRead());
    }

    void pastedSpectrumReadsNothing()
    {
        MainWindow window;
        QVERIFY(TestSupport::showActive(window));
        QGuiApplication::clipboard()->setText(
            QString::fromUtf8(QJsonDocument(datasetOfTraps()).toJson()));
        TestSupport::trigger(window, "actionPaste");
        QCOMPARE(TestSupport::spectra(window).size(), 1);
        lookAtEverything(window);
        TestSupport::trigger(window, "actionCopy");
        TestSupport::trigger(window, "actionPaste");
        QCOMPARE(TestSupport::spectra(window).size(), 2);
        lookAtEverything(window);
        QVERIFY(nothingWasRead());
    }

    void creationDateReadsNothing()
    {
        MainWindow window;
        QVERIFY(TestSupport::showActive(window));
        QGuiApplication::clipboard()->setText(
            QString::fromUtf8(QJsonDocument(datasetOfTraps()).toJson()));
        TestSupport::trigger(window, "actionPaste");
        auto* created = TestSupport::child<QLabel>(window, "labelCreated");
        QCOMPARE(created->text(), everyTrap());
        QVERIFY(!created->grab().isNull());
        restCursor(*created, created->rect().center());
        QVERIFY(nothingWasRead());
    }

    void titlesAndTabsReadNothing()
    {
        // Tags with a blank are text in the field, and so in the titles, but tags to a label.
        const QString title = everyTrap().replace("<img"_L1, "< img"_L1);
        const QString path =
            sandbox->write(fileName(), TestSupport::speciesFile(u"benzene"_s, {title, title}));
        MainWindow window;
        QVERIFY(TestSupport::showActive(window));
        QVERIFY(window.openEntry(path));
        const QString windowTitle = "KORVELA Entry Edit - "_L1 + fileName();
        QCOMPARE(window.windowTitle(), windowTitle);
        QCOMPARE(TestSupport::spectra(window).constFirst()->windowTitle(), title);
        const auto* tabs = window.findChild<QTabBar*>();
        QVERIFY(tabs->tabText(0).startsWith("a< img src="_L1));
        QCOMPARE(tabs->accessibleTabName(0), title);
        lookAtEverything(window);
        QVERIFY(nothingWasRead());
    }

    void databaseDialogReadsNothing()
    {
        CreateDatabase dialog(nullptr);
        QVERIFY(TestSupport::showActive(dialog));
        const QString source = sandbox->write(fileName(), "{}");
        dialogs->expectFileDialog(u"Select JSON Files to be added to the database"_s, source);
        QTest::mouseClick(TestSupport::child<QPushButton>(dialog, "pushButton_2"), Qt::LeftButton);
        dialogs->expectFileDialog(u"Database will be saved to..."_s,
                                  sandbox->path("new"_L1 + fileName()));
        QTest::mouseClick(TestSupport::child<QPushButton>(dialog, "pushButton"), Qt::LeftButton);

        const auto* list = TestSupport::child<QListWidget>(dialog, "listWidget");
        QCOMPARE(list->count(), 1);
        QCOMPARE(list->item(0)->text(), fileName());
        const QString target = "new"_L1 + fileName();
        QCOMPARE(TestSupport::child<QLabel>(dialog, "label_5")->text(), target);
        lookAtEverything(dialog);
        QVERIFY(nothingWasRead());
    }

    void fileDialogReadsNothing()
    {
        sandbox->write(fileName(), "{}");
        QVERIFY(QDir(sandbox->path()).mkdir(fileName() + u'd'));
        TestSupport::rememberFolder(sandbox->path());
        MainWindow window;
        QVERIFY(TestSupport::showActive(window));
        dialogs->expect([this](QWidget& dialog) {
            const auto* list = dialog.findChild<QTreeView*>();
            const auto shown = [list] { return list->model()->rowCount(list->rootIndex()) > 1; };
            if (!QTest::qWaitFor(shown))
                dialogs->complain(u"the folder is not shown"_s);
            lookAtEverything(dialog);
            dialog.close();
        });
        TestSupport::trigger(window, "actionLoadSpecies");
        QVERIFY(nothingWasRead());
    }

    void questionWhetherToReplaceReadsNothing()
    {
        const QString path = sandbox->write(fileName(), "{}");
        MainWindow window;
        QVERIFY(TestSupport::showActive(window));
        dialogs->expectFileDialog(u"Save Species JSON File"_s, path);
        dialogs->expect([this](QWidget& question) {
            auto* box = qobject_cast<QMessageBox*>(&question);
            if (box == nullptr || !box->text().contains(fileName()))
                dialogs->complain(u"the question is another one"_s);
            lookAtEverything(question);
            QTest::mouseClick(box->button(QMessageBox::Yes), Qt::LeftButton);
        });
        TestSupport::trigger(window, "actionSaveSpeciesAs");
        const QString windowTitle = "KORVELA Entry Edit - "_L1 + fileName();
        QCOMPARE(window.windowTitle(), windowTitle);
        QVERIFY(nothingWasRead());
    }

    void boxThatQuotesAPathReadsNothing_data()
    {
        QTest::addColumn<bool>("exists");
        QTest::newRow("no such file") << false;
        QTest::newRow("no species file") << true;
    }

    void boxThatQuotesAPathReadsNothing()
    {
        QFETCH(const bool, exists);
        const QString path = exists ? sandbox->write(fileName(), "{}") : sandbox->path(fileName());
        MainWindow window;
        QVERIFY(TestSupport::showActive(window));
        dialogs->expect([this, path](QWidget& dialog) {
            const auto* box = qobject_cast<QMessageBox*>(&dialog);
            if (box == nullptr || !box->text().contains(path))
                dialogs->complain(u"the box does not quote the path"_s);
            lookAtEverything(dialog);
            dialog.close();
        });
        QVERIFY(!window.openEntry(path));
        QVERIFY(nothingWasRead());
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
        const QString text = filledIn(u"<img src=\"FILE\"> <b>a</b>"_s);
        dialogs->expect([&](QWidget& dialog) {
            auto* box = qobject_cast<QMessageBox*>(&dialog);
            if (box == nullptr || box->textFormat() != Qt::PlainText || box->text() != text ||
                box->icon() != icon || box->windowTitle() != "Error"_L1 ||
                box->standardButtons() != QMessageBox::Ok)
                dialogs->complain(u"the box is another one"_s);
            if (dialog.grab().isNull())
                dialogs->complain(u"the box cannot be painted"_s);
            dialog.close();
        });
        const QString title = u"Error"_s;
        if (icon == QMessageBox::Information)
            Messages::information(nullptr, title, text);
        else if (icon == QMessageBox::Warning)
            Messages::warning(nullptr, title, text);
        else
            Messages::critical(nullptr, title, text);
        QVERIFY(nothingWasRead());
    }

private:
    [[nodiscard]] QString filledIn(QString pattern) const
    {
        return pattern.replace("FILE"_L1, trap->path())
            .replace("URL"_L1, trap->url())
            .replace("HOST"_L1, host->url());
    }

    /// A text that makes an ordinary field read, in as many ways as a line holds.
    [[nodiscard]] QString everyTrap() const
    {
        return filledIn(u"a<img src=\"FILE\"><img src=\"URL\"><img src=\"HOST\">"_s);
    }

    /// A name that makes an ordinary label read the trap: no name holds a slash, but all may hold
    /// what a slash is written as.
    [[nodiscard]] QString fileName() const
    {
        const QString encoded = QString::fromLatin1(QUrl::toPercentEncoding(trap->path()));
        return u"<img src=%1>.json"_s.arg(encoded);
    }

    [[nodiscard]] QJsonObject datasetOfTraps() const
    {
        QJsonObject dataset{{u"Type"_s, u"Spectrum v1"_s}};
        for (const char* key :
             {"Title", "Uploader", "DOI", "FurtherRefs", "T", "FurtherComments", "CreatedDate",
              "FacilityDate", "Source", "Resolution", "Normalization"})
            dataset.insert(QLatin1StringView(key), everyTrap());
        return dataset;
    }

    [[nodiscard]] bool nothingWasRead() const { return !trap->sprung() && !host->sprung(); }

    [[nodiscard]] static std::unique_ptr<CleanTextEdit> makeField(bool singleLine)
    {
        return singleLine ? std::make_unique<SingleLineTextEdit>()
                          : std::make_unique<CleanTextEdit>();
    }
};

QTEST_MAIN(TestRichTextResources)
#include "tst_richtextresources.moc"
