#include "answer_style.h"

#include "contract_requests.h"
#include "host_text.h"
#include "message_names.h"

#include <map>

namespace sample_host {
namespace {

std::map<HWND, Misbehaviour> styles;

// Answers that were pointed at have to stay readable until the next message.
std::string lastAnswer;

constexpr LRESULT kHugeAnswer = 0x7FFFFFFF;

bool AsksForNumber(UINT message) {
    return IsContractRequest(message) || IsControlRequest(message) || message == WM_GETTEXTLENGTH;
}

// Memory without access.
std::uint64_t Unreadable() {
    static const void* page = VirtualAlloc(nullptr, 1, MEM_RESERVE, PAGE_NOACCESS);
    return reinterpret_cast<std::uintptr_t>(page);
}

// A page full of characters, with nothing readable behind it.
std::uint64_t WithoutEnd() {
    constexpr std::size_t kPage = 4096;
    static char* page = [] {
        auto* pages = static_cast<char*>(VirtualAlloc(nullptr, 2 * kPage, MEM_RESERVE, PAGE_NOACCESS));
        VirtualAlloc(pages, kPage, MEM_COMMIT, PAGE_READWRITE);
        std::memset(pages, 'p', kPage);
        return pages;
    }();
    return reinterpret_cast<std::uintptr_t>(page) + kPage - 100;
}

// What stands in the buffer after a proper answer, spoilt or moved.
void Restyle(ghosthand::host_contract::TextBuffer& buffer, Misbehaviour style) {
    switch (style) {
    case Misbehaviour::AnswerByPointer:
        lastAnswer = ReadText(buffer);
        AnswerText(buffer, "only the text that the pointer names counts");
        break;
    case Misbehaviour::AnswerTooLong:
        lastAnswer.assign(3000, 'l');
        break;
    case Misbehaviour::AnswerUnterminated:
        std::memset(reinterpret_cast<char*>(buffer.text), 'u', buffer.capacity);
        return;
    case Misbehaviour::AnswerUnreadable:
        buffer.text = Unreadable();
        return;
    case Misbehaviour::AnswerWithoutEnd:
        buffer.text = WithoutEnd();
        return;
    default:
        return;
    }
    buffer.text = reinterpret_cast<std::uintptr_t>(lastAnswer.c_str());
}

} // namespace

bool SetAnswerStyle(HWND window, Misbehaviour style) {
    if (style < Misbehaviour::AnswerProperly || style > Misbehaviour::AnswerHuge)
        return false;
    styles[window] = style;
    return true;
}

void ForgetAnswerStyle(HWND window) {
    styles.erase(window);
}

LRESULT AnswerInStyle(const MSG& message, const std::function<LRESULT()>& proper) {
    const auto found = styles.find(message.hwnd);
    if (found != styles.end() && found->second == Misbehaviour::AnswerHuge && AsksForNumber(message.message))
        return kHugeAnswer;
    if (found == styles.end() || !IsContractRequest(message.message))
        return proper();
    switch (found->second) {
    case Misbehaviour::AnswerNothing:
        return 0;
    case Misbehaviour::Answer165:
        return ghosthand::host_contract::kProbeAnswer;
    case Misbehaviour::AnswerGarbage:
        return kGarbageAnswer;
    default:
        break;
    }
    const LRESULT answer = proper();
    if (auto* buffer = TextBufferOf(message))
        Restyle(*buffer, found->second);
    return answer;
}

} // namespace sample_host
