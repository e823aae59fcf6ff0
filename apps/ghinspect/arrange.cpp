#include "ghinspect/arrange.h"

#include <algorithm>

#include <windows.h>

#include <commctrl.h>

#include "ghinspect/control_ids.h"

namespace inspector {

namespace {

// In pixels at 100 %.
constexpr int kMargin = 10;
constexpr int kGap = 6;
constexpr int kCrossSize = 40;
constexpr int kButtonWidth = 88;
constexpr int kWideButtonWidth = 108;
constexpr int kTreeLabelWidth = 62;
constexpr int kLabelWidth = 74;
constexpr int kLanguageWidth = 120;
constexpr SIZE kSmallest = {720, 440};
constexpr int kTreeShare = 40; // per cent of the width

class Placing {
public:
    explicit Placing(HWND window) : m_window(window), m_deferred(BeginDeferWindowPos(24)) {}
    ~Placing() { EndDeferWindowPos(m_deferred); }
    Placing(const Placing&) = delete;
    Placing& operator=(const Placing&) = delete;

    void Put(int id, int left, int top, int width, int height) {
        const HWND control = GetDlgItem(m_window, id);
        if (control != nullptr && m_deferred != nullptr) {
            m_deferred = DeferWindowPos(m_deferred, control, nullptr, left, top, std::max(0, width),
                                        std::max(0, height),
                                        // Texts that wrap are drawn anew as a whole.
                                        SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOCOPYBITS);
        }
    }

private:
    HWND m_window;
    HDWP m_deferred;
};

} // namespace

SIZE SmallestArea(Scale scale) {
    return {scale(kSmallest.cx), scale(kSmallest.cy)};
}

void Arrange(HWND window, Scale scale, const Fonts& fonts) {
    const HWND status = GetDlgItem(window, ids::kStatus);
    SendMessageW(status, WM_SIZE, 0, 0);
    RECT statusArea;
    GetWindowRect(status, &statusArea);
    RECT area;
    GetClientRect(window, &area);
    const int margin = scale(kMargin);
    const int gap = scale(kGap);
    const int line = fonts.LineHeight();
    const int row = line + scale(10); // an edit control or a button
    const int labelDrop = (row - line) / 2;
    // An edit control writes at its top.
    const int editHeight = line + scale(7);
    const int editDrop = (row - editHeight) / 2;
    const int bottom = area.bottom - (statusArea.bottom - statusArea.top) - gap;
    Placing placing(window);

    const int left = margin;
    const int treeWidth = (area.right - 2 * margin) * kTreeShare / 100;
    const int button = scale(kButtonWidth);
    int top = margin;
    const int findLabel = scale(36);
    placing.Put(ids::kFindLabel, left, top + labelDrop, findLabel, line);
    placing.Put(ids::kFind, left + findLabel, top + editDrop, treeWidth - findLabel - gap - button,
                editHeight);
    placing.Put(ids::kFindNext, left + treeWidth - button, top, button, row);
    top += row + gap;
    const int treeLabel = scale(kTreeLabelWidth);
    placing.Put(ids::kTreeLabel, left, top + labelDrop, treeLabel, line);
    placing.Put(ids::kHiddenWindows, left + treeLabel, top, treeWidth - treeLabel - gap - button, row);
    placing.Put(ids::kRefresh, left + treeWidth - button, top, button, row);
    top += row + gap;
    placing.Put(ids::kTree, left, top, treeWidth, bottom - top);

    const int right = left + treeWidth + margin;
    const int width = area.right - margin - right;
    const int cross = scale(kCrossSize);
    top = margin;
    placing.Put(ids::kCrosshair, right, top, cross, cross);
    placing.Put(ids::kPickLabel, right + cross + gap, top + std::max(0, (cross - 2 * line) / 2),
                width - cross - 3 * gap - 2 * button, 2 * line + 2);
    placing.Put(ids::kPick, right + width - 2 * button - gap, top + (cross - row) / 2, button, row);
    placing.Put(ids::kShow, right + width - button, top + (cross - row) / 2, button, row);
    top += cross + 2 * gap;
    placing.Put(ids::kName, right, top, width, line + 2);
    top += line + gap;
    const int copy = scale(kWideButtonWidth);
    const int language = scale(kLanguageWidth);
    const int languageLabel = scale(46);
    const HWND languages = GetDlgItem(window, ids::kLanguage);
    SendMessageW(languages, CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), row - scale(8));
    // The list's height counts where it opens.
    placing.Put(ids::kLanguageLabel, right, top + labelDrop, languageLabel, line);
    placing.Put(ids::kLanguage, right + languageLabel, top + 1, language, 12 * line);
    placing.Put(ids::kCopy, right + languageLabel + language + gap, top, copy, row);
    top += row + gap;
    const int callHeight = 3 * line + scale(10);
    placing.Put(ids::kCall, right, top, width, callHeight);
    top += callHeight + gap;
    placing.Put(ids::kVerdict, right, top, width, 2 * line + 2);
    top += 2 * line + gap;

    // Of the tab control only the tabs are seen.
    RECT page = {right, top, right + width, bottom};
    TabCtrl_AdjustRect(GetDlgItem(window, ids::kPages), FALSE, &page);
    placing.Put(ids::kPages, right, top, width, page.top - top);
    page = {right, page.top, right + width, bottom};
    const int pageWidth = page.right - page.left;
    placing.Put(ids::kFacts, page.left, page.top, pageWidth, page.bottom - page.top);
    const int label = scale(kLabelWidth);
    int below = page.bottom - row;
    placing.Put(ids::kAnswerLabel, page.left, below + labelDrop, label, line);
    placing.Put(ids::kAnswer, page.left + label, below + editDrop, pageWidth - label, editHeight);
    below -= row + gap;
    placing.Put(ids::kArgumentsLabel, page.left, below + labelDrop, label, line);
    placing.Put(ids::kArguments, page.left + label, below + editDrop, pageWidth - label - gap - copy,
                editHeight);
    placing.Put(ids::kDo, page.right - copy, below, copy, row);
    below -= line + gap;
    placing.Put(ids::kHelp, page.left, below, pageWidth, line + 2);
    placing.Put(ids::kMembers, page.left, page.top, pageWidth, below - gap - page.top);
}

} // namespace inspector
