// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/longwork.h"

#include <QCoreApplication>
#include <QFontMetrics>
#include <QKeyEvent>
#include <QLabel>
#include <QProgressDialog>
#include <QSemaphore>
#include <QThreadPool>
#include <QTimer>

#include <algorithm>
#include <utility>

using namespace std::chrono_literals;

namespace {

constexpr std::chrono::milliseconds usualPatience = 1s;
/// Often enough for a key to be felt, seldom enough to cost nothing.
constexpr std::chrono::milliseconds betweenLooks = 50ms;

/// What all of them have in common.
struct Common
{
    std::chrono::milliseconds patience = usualPatience;
    int underWay = 0;
};

Common& common()
{
    static Common all;
    return all;
}

/// Not those of the toolkit, for which painting waits; and always one more, as what was stopped
/// before may still be working.
QThreadPool& threads()
{
    static QThreadPool pool;
    pool.setMaxThreadCount(pool.activeThreadCount() + 1);
    return pool;
}

/// Names of files are text, whatever they look like, and up to 255 characters long.
std::unique_ptr<QLabel> labelWith(const QString& text)
{
    constexpr int mostCharacters = 60;
    auto label = std::make_unique<QLabel>();
    label->setTextFormat(Qt::PlainText);
    label->setAlignment(Qt::AlignCenter);
    const QFontMetrics metrics = label->fontMetrics();
    label->setText(
        metrics.elidedText(text, Qt::ElideMiddle, mostCharacters * metrics.averageCharWidth()));
    return label;
}

/// Takes what was typed and clicked while there was no dialog yet, as the dialog would have done.
class EarlyInput : public QObject
{
public:
    EarlyInput() { QCoreApplication::instance()->installEventFilter(this); }

    [[nodiscard]] bool hasEscape() const { return escapeWasPressed; }

protected:
    bool eventFilter(QObject* /*watched*/, QEvent* event) override
    {
        if (event->type() == QEvent::KeyPress)
            escapeWasPressed |= static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape;
        return event->isInputEvent();
    }

private:
    bool escapeWasPressed = false;
};

} // namespace

LongWork::LongWork(QWidget* window, QString text)
    : parent(window)
    , what(std::move(text))
    , patience(common().patience)
{
    ++common().underWay;
    steps.start();
}

LongWork::~LongWork()
{
    --common().underWay;
}

bool LongWork::isUnderWay()
{
    return common().underWay > 0;
}

void LongWork::whenOver(QObject* context, const std::function<void()>& action)
{
    if (isUnderWay()) {
        QTimer::singleShot(betweenLooks, context, [context, action] { whenOver(context, action); });
        return;
    }
    action();
}

void LongWork::setPatience(std::chrono::milliseconds time)
{
    common().patience = time;
}

bool LongWork::runAside(const std::function<void()>& work)
{
    if (stopped)
        return false;
    const auto ended = std::make_shared<QSemaphore>();
    threads().start([work, ended] {
        work();
        ended->release();
    });
    if (ended->tryAcquire(1, static_cast<int>(patience.remainingTime())))
        return true;
    if (dialog == nullptr && !show())
        return false;
    dialog->setRange(0, 0); // nobody knows how far it is
    do
        look();
    while (!stopped && !ended->tryAcquire(1, static_cast<int>(betweenLooks.count())));
    return !stopped;
}

void LongWork::beginPart(qsizetype part, qsizetype parts)
{
    if (part == 0)
        steps.start();
    partSize = 1.0 / static_cast<double>(parts);
    partsDone = static_cast<double>(part) * partSize;
}

bool LongWork::goOn(qsizetype done, qsizetype all)
{
    if (stopped)
        return false;
    if (dialog == nullptr && !patience.hasExpired())
        return true;
    const double share =
        partsDone + partSize * static_cast<double>(done) / static_cast<double>(all);
    if (dialog == nullptr) {
        const double left = static_cast<double>(steps.elapsed()) * (1 - share);
        if (left < share * static_cast<double>(common().patience.count()))
            return true;
        if (!show())
            return false;
    }
    if (lastLook.isValid() &&
        !lastLook.hasExpired(std::min(betweenLooks, common().patience).count()))
        return true;
    constexpr int whole = 1000;
    dialog->setRange(0, whole);
    dialog->setValue(static_cast<int>(whole * share));
    look();
    return !stopped;
}

bool LongWork::show()
{
    {
        const EarlyInput input;
        QCoreApplication::processEvents();
        stopped = input.hasEscape();
    }
    if (stopped)
        return false;
    dialog = std::make_unique<QProgressDialog>(
        QString(), QCoreApplication::translate("LongWork", "Cancel"), 0, 0, parent);
    dialog->setLabel(labelWith(what).release()); // the dialog's from now on
    dialog->setWindowTitle(QCoreApplication::translate("LongWork", "Please wait"));
    dialog->setAccessibleName(what);
    dialog->setWindowModality(Qt::WindowModal);
    dialog->setAutoClose(false);
    dialog->setAutoReset(false);
    const auto stop = [this] { stopped = true; };
    QObject::connect(dialog.get(), &QProgressDialog::canceled, dialog.get(), stop);
    QObject::connect(dialog.get(), &QDialog::rejected, dialog.get(), stop);
    dialog->show();
    return true;
}

void LongWork::look()
{
    QCoreApplication::processEvents();
    lastLook.start();
}
