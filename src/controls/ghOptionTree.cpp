#include "controls/ghOptionTree.h"

#include <unordered_set>

#include "controls/host_text_request.h"
#include "engine/path_tokens.h"
#include "ghosthand/host_contract.h"
#include "hostlink/registered_messages.h"
#include "hostlink/remote_send.h"

namespace option_tree = ghosthand::host_contract::option_tree;

ghOptionTree ghOptionTree::RootItem() const {
    // Asked on the host's own thread, though it carries no data.
    return Item(hostlink::RemoteSend(Host(), hostlink::MSG_OT_RequestInformation, option_tree::kRoot));
}

ghOptionTree ghOptionTree::ItemByPath(const std::string& path) const {
    const auto labels = engine::PathTokens(path, engine::kOptionTreePath);
    if (!labels) {
        return Item(0);
    }
    ghOptionTree item = RootItem().ChildItem();
    for (std::size_t depth = 0; depth < labels->size(); ++depth) {
        if (depth > 0) {
            item = item.ChildItem();
        }
        item = item.SiblingWithLabel((*labels)[depth]);
    }
    return item;
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

// This item or the first one behind it with that label.
ghOptionTree ghOptionTree::SiblingWithLabel(const std::string& label) const {
    // A host that answers nonsense can lead in a circle.
    std::unordered_set<std::uint64_t> seen;
    ghOptionTree item = *this;
    while (item.IsValidItem() && item.Label() != label) {
        item = seen.insert(item.m_item).second ? item.SiblingItem() : Item(0);
    }
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
