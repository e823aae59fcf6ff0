// The members of ITreeControl, once for plain trees and CAD trees.
#pragma once

#include "automation/ghATLBaseWindowImpl.h"
#include "controls/ghTreeItem.h"

template <class Object, class Engine>
class ghATLTreeImpl : public ghATLBaseWindowImpl<Object, ITreeControl, Engine, IBaseWindow> {
public:
    using ghATLBaseWindowImpl<Object, ITreeControl, Engine, IBaseWindow>::ghATLBaseWindowImpl;

    HRESULT STDMETHODCALLTYPE SelectItem(BSTR path, VARIANT_BOOL* result) override {
        return this->Get(result, {path},
                         [&](auto& tree) { return tree.SelectItem(automation::ToAnsi(path)); });
    }
    HRESULT STDMETHODCALLTYPE SelectItemByNum(int number, VARIANT_BOOL* result) override {
        return this->Get(result, {number}, [&](auto& tree) { return tree.SelectItemByNum(number); });
    }
    HRESULT STDMETHODCALLTYPE SelectItemByPath(BSTR path, VARIANT_BOOL* result) override {
        if (result == nullptr) {
            // Alone among the three in testing it, and not with E_POINTER, on purpose.
            return automation::FailWithoutText(E_FAIL);
        }
        return this->Get(result, {path},
                         [&](auto& tree) { return tree.SelectItemByPath(automation::ToAnsi(path)); });
    }
    HRESULT STDMETHODCALLTYPE ContextMenu(VARIANT_BOOL selected, IControlBar** result) override {
        *result = nullptr;
        return this->Run({selected, result}, [&](auto& tree) {
            return automation::Wrap(tree.ContextMenu(automation::ToBool(selected)), result);
        });
    }
    HRESULT STDMETHODCALLTYPE ItemByNumPath(BSTR path, ITreeItem** result) override {
        *result = nullptr;
        return this->Run({path, result}, [&](const auto& tree) {
            return automation::Wrap(tree.ItemByNumPath(automation::ToAnsi(path)), result);
        });
    }
    HRESULT STDMETHODCALLTYPE ItemByNum(int number, ITreeItem** result) override {
        *result = nullptr;
        return this->Run({number, result},
                         [&](const auto& tree) { return automation::Wrap(tree.ItemByNum(number), result); });
    }
    HRESULT STDMETHODCALLTYPE ItemByPath(BSTR path, ITreeItem** result) override {
        *result = nullptr;
        return this->Run({path, result}, [&](const auto& tree) {
            return automation::Wrap(tree.ItemByPath(automation::ToAnsi(path)), result);
        });
    }
    HRESULT STDMETHODCALLTYPE get_SelectedItem(ITreeItem** result) override {
        *result = nullptr;
        return this->Run({result},
                         [&](const auto& tree) { return automation::Wrap(tree.SelectedItem(), result); });
    }
};
