// The calling thread's locale, switched for the life of an object.
#pragma once

#include <windows.h>

namespace server {

class ThreadLocale {
public:
    explicit ThreadLocale(LCID locale) noexcept : m_previous(GetThreadLocale()) { SetThreadLocale(locale); }
    ~ThreadLocale() { SetThreadLocale(m_previous); }
    ThreadLocale(const ThreadLocale&) = delete;
    ThreadLocale& operator=(const ThreadLocale&) = delete;

private:
    LCID m_previous;
};

} // namespace server
