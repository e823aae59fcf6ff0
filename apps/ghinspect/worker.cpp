#include "ghinspect/worker.h"

#include <atomic>
#include <deque>
#include <exception>
#include <mutex>
#include <thread>

#include <objbase.h>

namespace inspector {

// What the window's thread and the worker's share; the last one to leave clears it away.
struct Worker::Desk {
    Desk(HWND receiverWindow, UINT replyMessage)
        : receiver(receiverWindow), message(replyMessage),
          wake(CreateEventW(nullptr, FALSE, FALSE, nullptr)) {}
    ~Desk() { CloseHandle(wake); }
    Desk(const Desk&) = delete;
    Desk& operator=(const Desk&) = delete;

    // Null when the worker shall end.
    Question Take() {
        for (;;) {
            {
                const std::lock_guard lock(mutex);
                busySince = 0;
                if (closed) {
                    return nullptr;
                }
                if (!questions.empty()) {
                    Question next = std::move(questions.front());
                    questions.pop_front();
                    busySince = GetTickCount64();
                    return next;
                }
            }
            MsgWaitForMultipleObjects(1, &wake, FALSE, INFINITE, QS_ALLINPUT);
            for (MSG queued; PeekMessageW(&queued, nullptr, 0, 0, PM_REMOVE);) {
                DispatchMessageW(&queued);
            }
        }
    }

    void Deliver(Reply reply) {
        if (!reply || closed) {
            return;
        }
        auto owned = std::make_unique<Reply>(std::move(reply));
        if (PostMessageW(receiver, message, 0, reinterpret_cast<LPARAM>(owned.get()))) {
            static_cast<void>(owned.release()); // RunReply takes it
        }
    }

    void Run() {
        CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
        while (const Question question = Take()) {
            try {
                Deliver(question());
            } catch (const std::exception&) {
                // No memory, as a rule: the window keeps what it shows.
            }
        }
        CoUninitialize();
    }

    const HWND receiver;
    const UINT message;
    const HANDLE wake;
    std::mutex mutex;
    std::deque<Question> questions;
    ULONGLONG busySince = 0;
    std::atomic<bool> closed = false;
};

Worker::Worker(HWND receiver, UINT message) : m_receiver(receiver), m_message(message) {
    Start();
}

Worker::~Worker() {
    Leave();
}

void Worker::Start() {
    m_desk = std::make_shared<Desk>(m_receiver, m_message);
    std::thread([desk = m_desk] { desk->Run(); }).detach();
}

void Worker::Leave() {
    m_desk->closed = true;
    SetEvent(m_desk->wake);
}

void Worker::Ask(Question question) {
    {
        const std::lock_guard lock(m_desk->mutex);
        m_desk->questions.push_back(std::move(question));
    }
    SetEvent(m_desk->wake);
}

ULONGLONG Worker::BusyMilliseconds() const {
    const std::lock_guard lock(m_desk->mutex);
    return m_desk->busySince == 0 ? 0 : GetTickCount64() - m_desk->busySince;
}

void Worker::StartAfresh() {
    Leave();
    Start();
}

void RunReply(LPARAM lParam) {
    const std::unique_ptr<Reply> reply(reinterpret_cast<Reply*>(lParam));
    (*reply)();
}

} // namespace inspector
