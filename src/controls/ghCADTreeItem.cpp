#include "controls/ghCADTreeItem.h"

#include "engine/synchronise.h"
#include "ghosthand/host_contract.h"
#include "hostlink/remote_send.h"
#include "inhouse/hostlink.h"

namespace cad_tree = ghosthand::host_contract::cad_tree;

bool ghCADTreeItem::Visible() const noexcept {
    return Ask(cad_tree::kGetVisible) != 0;
}

void ghCADTreeItem::SetVisible(bool visible) const {
    Order(visible ? cad_tree::kShow : cad_tree::kHide);
}

bool ghCADTreeItem::Checked() const noexcept {
    return Ask(cad_tree::kGetChecked) != 0;
}

void ghCADTreeItem::SetChecked(bool checked) const {
    Order(checked ? cad_tree::kCheck : cad_tree::kUncheck);
}

int ghCADTreeItem::Color() const noexcept {
    return Ask(cad_tree::kGetColor);
}

void ghCADTreeItem::SetColor(int color) const {
    cad_tree::ColorRequest record = {reinterpret_cast<std::uintptr_t>(Item()), color, 0};
    hostlink::RemoteSend(Tree().Host(), hlWM_REQUEST_CAD_TREE_INFORMATION, cad_tree::kSetColor,
                         hostlink::AsBlock(record));
    engine::Synchronise(Tree());
}

bool ghCADTreeItem::Starred() const noexcept {
    return Ask(cad_tree::kGetStarred) != 0;
}

void ghCADTreeItem::SetStarred(bool starred) const {
    Order(starred ? cad_tree::kStar : cad_tree::kUnstar);
}

// Only the low half of the answer counts.
std::int32_t ghCADTreeItem::Ask(std::uint32_t request) const noexcept {
    return static_cast<std::int32_t>(SendMessageA(Tree().Window(), hlWM_REQUEST_CAD_TREE_INFORMATION, request,
                                                  reinterpret_cast<LPARAM>(Item())));
}

void ghCADTreeItem::Order(std::uint32_t request) const {
    Ask(request);
    engine::Synchronise(Tree());
}
