#include "controls/ghOptionTree.h"

#include "controls/host_text_request.h"
#include "engine/path_tokens.h"
#include "ghosthand/host_contract.h"
#include "hostlink/registered_messages.h"
#include "hostlink/remote_send.h"
#include "hostlink/walk.h"

namespace option_tree = ghosthand::host_contract::option_tree;

ghOptionTree ghOptionTree::RootItem() const {
    // Asked on the host's own thread, though it carries no data.
    return Item(hostlink::RemoteSend(Host(), hostlink::MSG_OT_RequestInformation, option_tree::kRoot));
}

ghOptionTree ghOptionTree::ItemByPath(const std::string& path) const {
    PathPosition position;
    if (path.size() <= engine::kOptionTreePath.longest) {
        hostlink::Walk<PathPosition, StepAlongPath>(Host(), path, position);
    }
    return Item(static_cast<LRESULT>(position.item));
}

bool ghOptionTree::StepAlongPath(const hostlink::HostWindow& control, std::string_view path,
                                 PathPosition& position) {
    const ghOptionTree tree(control.window);
    const ghOptionTree item = tree.Item(static_cast<LRESULT>(position.item));
    std::size_t behind = position.token;
    const std::string_view label = engine::NextPathToken(path, engine::kOptionTreePath, behind);
    if (position.hasBegun == 0) {
        position.hasBegun = 1;
        position.item = tree.RootItem().ChildItem().m_item;
    } else if (item.Label() == label) {
        if (!engine::HasPathToken(path, engine::kOptionTreePath, behind)) {
            return false;
        }
        position = {
            .item = item.ChildItem().m_item, .token = static_cast<std::uint32_t>(behind), .hasBegun = 1};
    } else if (position.item == position.mark) {
        position.item = 0; // a host that answers nonsense has led in a circle
    } else {
        if (--position.untilMark == 0) {
            position.mark = position.item;
            position.stride *= 2;
            position.untilMark = position.stride;
        }
        position.item = item.SiblingItem().m_item;
    }
    return position.item != 0 && !label.empty();
}

ghOptionTree ghOptionTree::ChildItem() const {
    return Item(Ask(option_tree::kFirstChild));
}

ghOptionTree ghOptionTree::ParentItem() const {
    return Item(Ask(option_tree::kParent));
}

ghOptionTree ghOptionTree::SiblingItem() const {
    return Item(Ask(option_tree::kNextSibling));
}

std::string ghOptionTree::Label() const {
    return RequestText(option_tree::kLabel);
}

std::string ghOptionTree::Value() const {
    return RequestText(option_tree::kGetText);
}

void ghOptionTree::SetValue(const std::string& value) const {
    option_tree::TextRequest record = {m_item, {}};
    controls::SendText(*this, hostlink::MSG_OT_RequestInformation, option_tree::kSetText,
                       hostlink::AsBlock(record), offsetof(option_tree::TextRequest, buffer), value);
}

bool ghOptionTree::IsCheckbox() const noexcept {
    return Ask(option_tree::kItemKind) == option_tree::kCheckBoxKind;
}

bool ghOptionTree::Checked() const {
    return Value() == "1";
}

void ghOptionTree::SetChecked(bool checked) const {
    SetValue(checked ? "1" : "0");
}

bool ghOptionTree::IsReadOnly() const noexcept {
    return Ask(option_tree::kReadOnly) != 0;
}

ghOptionTree ghOptionTree::Item(LRESULT identifier) const {
    ghOptionTree item = *this;
    item.m_item = static_cast<std::uint64_t>(identifier);
    return item;
}

// What is asked of no item is answered by none, without a message.
LRESULT ghOptionTree::Ask(std::uint32_t request) const noexcept {
    return m_item == 0 ? 0
                       : SendMessageA(Window(), hostlink::MSG_OT_RequestInformation, request,
                                      static_cast<LPARAM>(m_item));
}

std::string ghOptionTree::RequestText(std::uint32_t request) const {
    option_tree::TextRequest record = {m_item, {}};
    return controls::RequestText(*this, hostlink::MSG_OT_RequestInformation, request,
                                 hostlink::AsBlock(record), offsetof(option_tree::TextRequest, buffer));
}
