// Questions to other programs, asked on a thread of their own: a program that does not answer holds up that
// thread, never the window.
#pragma once

#include <functional>
#include <memory>

#include <windows.h>

namespace inspector {

// What is left to do on the window's thread once a question has been answered.
using Reply = std::function<void()>;
using Question = std::function<Reply()>;

// Runs one question after the other on a thread that is a single-threaded apartment and dispatches its
// messages while it waits.
class Worker {
public:
    // `receiver` gets `message` for every answer and passes its lParam to RunReply.
    Worker(HWND receiver, UINT message);
    ~Worker();
    Worker(const Worker&) = delete;
    Worker& operator=(const Worker&) = delete;

    void Ask(Question question);
    // How long the present question has been running; 0 if there is none.
    ULONGLONG BusyMilliseconds() const;
    // Forgets every question. What runs is left to itself, on a thread that ends with it, and later questions
    // do not wait for it.
    void StartAfresh();

private:
    struct Desk;

    void Start();
    void Leave();

    HWND m_receiver;
    UINT m_message;
    std::shared_ptr<Desk> m_desk;
};

void RunReply(LPARAM lParam);

} // namespace inspector
