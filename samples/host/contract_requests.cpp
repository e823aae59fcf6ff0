#include "contract_requests.h"

#include <algorithm>
#include <iterator>

namespace sample_host {
namespace {

using namespace ghosthand::host_contract;

// A request whose lParam points at a record.
struct RecordRequest {
    UINT message;
    WPARAM request;
    std::size_t size;
    std::size_t textOffset;
};
constexpr std::size_t kNoText = ~std::size_t{0};

const UINT kGrid = RegisterWindowMessageA(message_name::kGrid);
const UINT kOptionTree = RegisterWindowMessageA(message_name::kOptionTree);
const UINT kRibbonWidget = RegisterWindowMessageA(message_name::kRibbonWidget);
const UINT kCadTree = RegisterWindowMessageA(message_name::kCadTree);
const UINT kItemAtPoint = RegisterWindowMessageA(message_name::kItemAtPoint);
const UINT kGetViewPosition = RegisterWindowMessageA(message_name::kGetViewPosition);
const UINT kGetWindowByName = RegisterWindowMessageA(message_name::kGetWindowByName);
const UINT kSetViewPosition = RegisterWindowMessageA(message_name::kSetViewPosition);

const RecordRequest kRecordRequests[] = {
    {kGrid, grid::kGetCellText, sizeof(grid::CellRequest), offsetof(grid::CellRequest, buffer)},
    {kGrid, grid::kSetCellText, sizeof(grid::CellRequest), offsetof(grid::CellRequest, buffer)},
    {kGrid, grid::kCellReadOnly, sizeof(grid::CellRequest), offsetof(grid::CellRequest, buffer)},
    {kOptionTree, option_tree::kLabel, sizeof(option_tree::TextRequest),
     offsetof(option_tree::TextRequest, buffer)},
    {kOptionTree, option_tree::kGetText, sizeof(option_tree::TextRequest),
     offsetof(option_tree::TextRequest, buffer)},
    {kOptionTree, option_tree::kSetText, sizeof(option_tree::TextRequest),
     offsetof(option_tree::TextRequest, buffer)},
    {kRibbonWidget, ribbon_widget::kGetSelected, sizeof(TextBuffer), 0},
    {kRibbonWidget, ribbon_widget::kSetSelected, sizeof(TextBuffer), 0},
    {kCadTree, cad_tree::kSetColor, sizeof(cad_tree::ColorRequest), kNoText},
    {kItemAtPoint, 0, sizeof(ItemAtPoint), kNoText},
};

const RecordRequest* Find(const MSG& request) {
    const auto found = std::ranges::find_if(kRecordRequests, [&](const RecordRequest& known) {
        return known.message == request.message && known.request == request.wParam;
    });
    return found != std::end(kRecordRequests) && request.lParam ? found : nullptr;
}

} // namespace

bool IsContractRequest(UINT message) {
    const UINT requests[] = {kGrid,
                             kOptionTree,
                             kRibbonWidget,
                             kCadTree,
                             kItemAtPoint,
                             kGetViewPosition,
                             kSetViewPosition,
                             kGetWindowByName,
                             group_combo::kFindByNames,
                             group_combo::kHeadingOfItem};
    return std::ranges::find(requests, message) != std::end(requests);
}

std::span<const std::byte> RecordOf(const MSG& request) {
    const auto* record = reinterpret_cast<const std::byte*>(request.lParam);
    if (request.message == group_combo::kFindByNames && record && request.wParam <= kTextCapacity)
        return {record, request.wParam};
    const RecordRequest* known = Find(request);
    return known ? std::span(record, known->size) : std::span<const std::byte>{};
}

TextBuffer* TextBufferOf(const MSG& request) {
    const RecordRequest* known = Find(request);
    return known && known->textOffset != kNoText
               ? reinterpret_cast<TextBuffer*>(request.lParam + static_cast<LPARAM>(known->textOffset))
               : nullptr;
}

} // namespace sample_host
