// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QString>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <type_traits>
#include <utility>

class QObject;
class QProgressDialog;
class QWidget;

/// A command that can take long and can be stopped. For the first second nothing is seen of it, and
/// no event is delivered. Then a modal dialog says what is being done and how far it is; Escape,
/// which may have been pressed before, or its button stops the work. Whoever works does so in steps
/// that change nothing that is shown, and takes over what they have made when all of it is there.
///
/// While the dialog is open everything but input goes on: timers fire, and the network answers. Who
/// could do harm then asks isUnderWay().
class LongWork
{
public:
    /// @p text says what is being done, in the dialog over @p window.
    LongWork(QWidget* window, QString text);
    ~LongWork();
    Q_DISABLE_COPY_MOVE(LongWork)

    /// Does in another thread what cannot be done in steps, and returns its result; nothing when it
    /// was stopped. Then it goes on to its end, and nobody gets to know what it has made: it must
    /// not use what it does not own.
    template <typename Work>
    [[nodiscard]] std::optional<std::invoke_result_t<Work&>> aside(Work work)
    {
        const auto result = std::make_shared<std::optional<std::invoke_result_t<Work&>>>();
        if (!runAside([result, work = std::move(work)] { result->emplace(work()); }))
            return {};
        return std::move(*result);
    }

    /// What is done next is one of several equal parts, the first of them @p part 0.
    void beginPart(qsizetype part, qsizetype parts);

    /// To be asked between two steps of a part: whether to go on. @p done of @p all are done.
    [[nodiscard]] bool goOn(qsizetype done, qsizetype all);

    /// goOn() for who knows nothing of this.
    [[nodiscard]] std::function<bool(qsizetype done, qsizetype all)> question()
    {
        return [this](qsizetype done, qsizetype all) { return goOn(done, all); };
    }

    /// Whether it was stopped.
    [[nodiscard]] bool isStopped() const { return stopped; }

    /// Whether any is being done.
    [[nodiscard]] static bool isUnderWay();

    /// Has @p action done as soon as none is being done any more, unless @p context is gone by
    /// then.
    static void whenOver(QObject* context, const std::function<void()>& action);

    /// How long people wait before they want to know how long, a second by default.
    static void setPatience(std::chrono::milliseconds time);

private:
    [[nodiscard]] bool runAside(const std::function<void()>& work);
    [[nodiscard]] bool show(); ///< Whether it was not stopped before.
    void look();

    QWidget* parent;
    QString what;
    std::unique_ptr<QProgressDialog> dialog;
    QDeadlineTimer patience;
    QElapsedTimer steps;    ///< Since the first part began.
    QElapsedTimer lastLook; ///< Since events were delivered.
    bool stopped = false;
    double partsDone = 0; ///< Of all of them, from 0 to 1.
    double partSize = 1;
};
