// The members of ITreeItem that items of plain trees and of CAD trees have in common.
#pragma once

#include "automation/automation_object.h"
#include "automation/wrap.h"
#include "controls/ghTreeItem.h"

template <class Object, class Interface, class Engine, class... Bases>
class ghATLTreeItemImpl : public automation::AutomationObject<Object, Interface, Engine, Bases...> {
public:
    using automation::AutomationObject<Object, Interface, Engine, Bases...>::AutomationObject;

    HRESULT STDMETHODCALLTYPE get_Selected(VARIANT_BOOL* result) override {
        return this->Get(result, [](const auto& item) { return item.Selected(); });
    }
    HRESULT STDMETHODCALLTYPE put_Selected(VARIANT_BOOL value) override {
        return this->Run({value}, [&](auto& item) { item.SetSelected(automation::ToBool(value)); });
    }
    HRESULT STDMETHODCALLTYPE get_Expanded(VARIANT_BOOL* result) override {
        return this->Get(result, [](const auto& item) { return item.Expanded(); });
    }
    HRESULT STDMETHODCALLTYPE put_Expanded(VARIANT_BOOL value) override {
        return this->Run({value}, [&](auto& item) { item.SetExpanded(automation::ToBool(value)); });
    }
    HRESULT STDMETHODCALLTYPE ContextMenu(IControlBar** result) override {
        *result = nullptr;
        return this->Run({result}, [&](auto& item) { return automation::Wrap(item.ContextMenu(), result); });
    }
};
