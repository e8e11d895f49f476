#pragma once

#include <QString>

#include <atomic>
#include <functional>
#include <memory>
#include <thread>

class QWidget;

/// Waiting for work in another thread, with a progress dialog where it takes long.
namespace waiting {

/// False where the user did not want to wait. What takes no longer than a blink is waited for without looking
/// at events.
bool until(const std::function<bool()>& isDone, const QString& text, QWidget* parent);

/// The result of work in a thread of its own; null where the user did not want to wait. The work then goes on
/// and its result is dropped: it must own what it uses.
template <typename Value>
std::shared_ptr<Value> resultOf(const std::function<Value()>& work, const QString& text, QWidget* parent)
{
    struct State {
        std::atomic<bool> isDone{false};
        std::shared_ptr<Value> value;
    };
    auto state = std::make_shared<State>();
    std::thread([state, work] {
        state->value = std::make_shared<Value>(work());
        state->isDone = true;
    }).detach();
    return until([state] { return state->isDone.load(); }, text, parent) ? state->value : nullptr;
}

} // namespace waiting
