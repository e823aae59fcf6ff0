// The 72 members of IBaseWindow, once for every window class.
#pragma once

#include "automation/accessible_object.h"
#include "automation/automation_object.h"
#include "automation/message_parameters.h"
#include "automation/navigation.h"
#include "automation/wrap.h"
#include "controlbars/context_menu.h"
#include "input/keyboard.h"
#include "input/mouse.h"

// Object is the final class, Interface its dual interface, Engine the kind of its window object, Bases the
// window interfaces that Interface derives from.
template <class Object, class Interface, class Engine, class... Bases>
class ghATLBaseWindowImpl : public automation::AutomationObject<Object, Interface, Engine, Bases...> {
public:
    using automation::AutomationObject<Object, Interface, Engine, Bases...>::AutomationObject;

    HRESULT STDMETHODCALLTYPE get_Visible(VARIANT_BOOL* result) override {
        return this->Get(result, [](const auto& window) { return window.Visible(); });
    }
    HRESULT STDMETHODCALLTYPE get_Enabled(VARIANT_BOOL* result) override {
        return this->Get(result, [](const auto& window) { return window.Enabled(); });
    }
    HRESULT STDMETHODCALLTYPE get_Text(BSTR* result) override {
        return this->Get(result, [](const auto& window) { return window.Text(); });
    }
    HRESULT STDMETHODCALLTYPE put_Text(BSTR value) override {
        return this->Run({value}, [&](auto& window) { window.SetText(automation::ToAnsi(value), true); });
    }
    HRESULT STDMETHODCALLTYPE get_EnabledTimeout(LONG* result) override {
        return this->Get(result, [](const auto& window) { return window.EnabledTimeout(); });
    }
    HRESULT STDMETHODCALLTYPE put_EnabledTimeout(LONG value) override {
        return this->Run({value}, [&](auto& window) { window.SetEnabledTimeout(value); });
    }
    HRESULT STDMETHODCALLTYPE get_Synchronization(VARIANT_BOOL* result) override {
        return this->Get(result, [](const auto& window) { return window.Synchronization(); });
    }
    HRESULT STDMETHODCALLTYPE put_Synchronization(VARIANT_BOOL value) override {
        return this->Run({value},
                         [&](auto& window) { window.SetSynchronization(automation::ToBool(value)); });
    }
    HRESULT STDMETHODCALLTYPE FitSize(LONG width, LONG height) override {
        return this->Run({width, height}, [&](auto& window) { window.FitSize(width, height); });
    }
    HRESULT STDMETHODCALLTYPE get_Width(LONG* result) override {
        return this->Get(result, [](const auto& window) { return window.Width(); });
    }
    HRESULT STDMETHODCALLTYPE get_Height(LONG* result) override {
        return this->Get(result, [](const auto& window) { return window.Height(); });
    }
    HRESULT STDMETHODCALLTYPE SetFocus(VARIANT_BOOL* result) override {
        return this->Get(result, [](auto& window) { return window.SetFocus(); });
    }
    HRESULT STDMETHODCALLTYPE Close() override {
        return this->Run([](auto& window) { window.Close(); });
    }
    HRESULT STDMETHODCALLTYPE SendMessage(LONG message, LONG wparam, hyper lparam, LONG* result) override {
        return this->Get(result, {message, wparam, lparam}, [&](auto& window) {
            return automation::LowHalf(
                window.Send(automation::ToMessage(message), automation::ToWParam(wparam), lparam));
        });
    }
    HRESULT STDMETHODCALLTYPE PostMessage(LONG message, LONG wparam, hyper lparam, LONG* result) override {
        return this->Get(result, {message, wparam, lparam}, [&](auto& window) {
            return int{window.Post(automation::ToMessage(message), automation::ToWParam(wparam), lparam)};
        });
    }
    HRESULT STDMETHODCALLTYPE PostMessageFocus(LONG message, LONG wparam, hyper lparam,
                                               LONG* result) override {
        return this->Get(result, {message, wparam, lparam}, [&](auto& window) {
            return int{
                window.PostToFocus(automation::ToMessage(message), automation::ToWParam(wparam), lparam)};
        });
    }
    HRESULT STDMETHODCALLTYPE Command(LONG command, VARIANT_BOOL* result) override {
        return this->Get(result, {command}, [&](auto& window) { return window.Command(command); });
    }
    HRESULT STDMETHODCALLTYPE Click(LONG button, LONG x, LONG y, LONG keys) override {
        return this->Run({button, x, y, keys},
                         [&](const auto& window) { input::Click(window, button, x, y, keys); });
    }
    HRESULT STDMETHODCALLTYPE DoubleClick(LONG button, LONG x, LONG y, LONG keys) override {
        return this->Run({button, x, y, keys},
                         [&](const auto& window) { input::DoubleClick(window, button, x, y, keys); });
    }
    HRESULT STDMETHODCALLTYPE MouseDown(LONG button, LONG x, LONG y, LONG keys) override {
        return this->Run({button, x, y, keys},
                         [&](const auto& window) { input::MouseDown(window, button, x, y, keys); });
    }
    HRESULT STDMETHODCALLTYPE MouseUp(LONG button, LONG x, LONG y, LONG keys) override {
        return this->Run({button, x, y, keys},
                         [&](const auto& window) { input::MouseUp(window, button, x, y, keys); });
    }
    HRESULT STDMETHODCALLTYPE MouseMove(LONG x, LONG y, LONG keys) override {
        return this->Run({x, y, keys}, [&](const auto& window) { input::MouseMove(window, x, y, keys); });
    }
    HRESULT STDMETHODCALLTYPE MenuChars(BSTR path, LONG delay) override {
        return this->Run({path, delay}, [&](const auto& window) {
            input::MenuChars(window, automation::ToAnsi(path), delay);
        });
    }
    HRESULT STDMETHODCALLTYPE MenuIndex(BSTR path, LONG delay) override {
        return this->Run({path, delay}, [&](const auto& window) {
            input::MenuIndex(window, automation::ToAnsi(path), delay);
        });
    }
    HRESULT STDMETHODCALLTYPE Parent(IBaseWindow** result) override {
        *result = nullptr;
        return this->Run({result}, [&](const auto& window) {
            return automation::Wrap(std::make_unique<ghBaseWindow>(window.Parent()), result);
        });
    }
    HRESULT STDMETHODCALLTYPE ActiveDialog(LONG timeout, IBaseWindow** result) override {
        return this->Navigate(result, {timeout}, timeout,
                              [&] { return automation::navigation::ActiveDialog(); });
    }
    HRESULT STDMETHODCALLTYPE ActiveDocument(LONG timeout, IBaseWindow** result) override {
        return this->Navigate(result, {timeout}, timeout,
                              [&] { return automation::navigation::ActiveDocument(); });
    }
    HRESULT STDMETHODCALLTYPE OpenSaveDialog(LONG timeout, IOpenSaveDialog** result) override {
        return this->Navigate(result, {timeout}, timeout,
                              [&] { return automation::navigation::OpenSaveDialog(); });
    }
    HRESULT STDMETHODCALLTYPE ChildWindow(BSTR caption, BSTR className, LONG id, LONG flags, LONG timeout,
                                          IBaseWindow** result) override {
        return this->Navigate(result, {caption, className, id, flags, timeout}, timeout, [&] {
            return automation::navigation::ChildWindow(automation::ToAnsi(caption),
                                                       automation::ToAnsi(className), id, flags);
        });
    }
    HRESULT STDMETHODCALLTYPE ChildDialogByControl(BSTR caption, LONG id, LONG timeout,
                                                   IBaseWindow** result) override {
        return this->Navigate(result, {caption, id, timeout}, timeout, [&] {
            return automation::navigation::ChildDialogByControl(automation::ToAnsi(caption), id, false);
        });
    }
    HRESULT STDMETHODCALLTYPE ChildDialogByVisibleControl(BSTR caption, LONG id, LONG timeout,
                                                          IBaseWindow** result) override {
        return this->Navigate(result, {caption, id, timeout}, timeout, [&] {
            return automation::navigation::ChildDialogByControl(automation::ToAnsi(caption), id, true);
        });
    }
    HRESULT STDMETHODCALLTYPE ChildDialog(BSTR caption, LONG id, LONG flags, LONG timeout,
                                          IBaseWindow** result) override {
        return this->Navigate(result, {caption, id, flags, timeout}, timeout, [&] {
            return automation::navigation::ChildDialog(automation::ToAnsi(caption), id, flags);
        });
    }
    HRESULT STDMETHODCALLTYPE TreeCtrl(LONG id, LONG flags, LONG timeout, ITreeControl** result) override {
        return this->Navigate(result, {id, flags, timeout}, timeout, [&] {
            return automation::navigation::Control<ghTreeControl>(automation::navigation::kTreeView,
                                                                  "TreeControl", id, flags);
        });
    }
    HRESULT STDMETHODCALLTYPE CADTree(LONG id, LONG flags, LONG timeout, ITreeControl** result) override {
        return this->Navigate(result, {id, flags, timeout}, timeout, [&] {
            return automation::navigation::Control<ghCADTree>(automation::navigation::kCadTree,
                                                              "CADTreeControl", id, flags);
        });
    }
    HRESULT STDMETHODCALLTYPE OptionTree(LONG id, LONG flags, LONG timeout, IOptionTree** result) override {
        return this->Navigate(result, {id, flags, timeout}, timeout, [&] {
            return automation::navigation::Control<ghOptionTree>(automation::navigation::kOptionTree,
                                                                 "OptionTree", id, flags);
        });
    }
    HRESULT STDMETHODCALLTYPE ComboBox(LONG id, LONG flags, LONG timeout, IComboBox** result) override {
        return this->Navigate(result, {id, flags, timeout}, timeout, [&] {
            return automation::navigation::Control<ghComboBox>(automation::navigation::kComboBox, "ComboBox",
                                                               id, flags);
        });
    }
    HRESULT STDMETHODCALLTYPE ListBox(LONG id, LONG flags, LONG timeout, IListBox** result) override {
        return this->Navigate(result, {id, flags, timeout}, timeout, [&] {
            return automation::navigation::Control<ghListBox>(automation::navigation::kListBox, "ListBox", id,
                                                              flags);
        });
    }
    HRESULT STDMETHODCALLTYPE ListView(LONG id, LONG flags, LONG timeout, IListView** result) override {
        return this->Navigate(result, {id, flags, timeout}, timeout, [&] {
            return automation::navigation::Control<ghListView>(automation::navigation::kListView, "ListView",
                                                               id, flags);
        });
    }
    HRESULT STDMETHODCALLTYPE TabCtrl(LONG id, LONG flags, LONG timeout, ITabControl** result) override {
        return this->Navigate(result, {id, flags, timeout}, timeout,
                              [&] { return automation::navigation::TabControl(id, flags); });
    }
    HRESULT STDMETHODCALLTYPE TrackBar(LONG id, LONG flags, LONG timeout, ITrackBar** result) override {
        return this->Navigate(result, {id, flags, timeout}, timeout, [&] {
            return automation::navigation::Control<ghTrackBar>(automation::navigation::kTrackBar, "TrackBar",
                                                               id, flags);
        });
    }
    HRESULT STDMETHODCALLTYPE Button(BSTR caption, LONG id, LONG flags, LONG timeout,
                                     IBaseWindow** result) override {
        return this->Navigate(result, {caption, id, flags, timeout}, timeout, [&] {
            return automation::navigation::Button(automation::ToAnsi(caption), id, flags);
        });
    }
    HRESULT STDMETHODCALLTYPE CheckBox(BSTR caption, LONG id, LONG flags, LONG timeout,
                                       ICheckBox** result) override {
        return this->Navigate(result, {caption, id, flags, timeout}, timeout, [&] {
            return automation::navigation::CheckBox(automation::ToAnsi(caption), id, flags);
        });
    }
    HRESULT STDMETHODCALLTYPE Edit(LONG id, LONG flags, LONG timeout, IBaseWindow** result) override {
        return this->Navigate(result, {id, flags, timeout}, timeout, [&] {
            return automation::navigation::Control<ghBaseWindow>(automation::navigation::kEdit, "Edit", id,
                                                                 flags);
        });
    }
    HRESULT STDMETHODCALLTYPE Toolbar(BSTR caption, LONG id, LONG flags, LONG timeout,
                                      IControlBar** result) override {
        return this->Navigate(result, {caption, id, flags, timeout}, timeout, [&] {
            return automation::navigation::Toolbar(automation::ToAnsi(caption), id, flags);
        });
    }
    HRESULT STDMETHODCALLTYPE MainMenu(LONG timeout, IControlBar** result) override {
        return this->Navigate(result, {timeout}, timeout, [&] { return automation::navigation::MainMenu(); });
    }
    HRESULT STDMETHODCALLTYPE ContextMenu(LONG x, LONG y, IControlBar** result) override {
        *result = nullptr;
        return this->Run({x, y, result}, [&](const auto& window) {
            return automation::Wrap(controlbars::OpenContextMenu(window, x, y), result);
        });
    }
    HRESULT STDMETHODCALLTYPE CurrentContextMenu(LONG timeout, IControlBar** result) override {
        return this->Navigate(result, {timeout}, timeout,
                              [&] { return automation::navigation::CurrentContextMenu(); });
    }
    HRESULT STDMETHODCALLTYPE GXGrid(LONG id, LONG flags, LONG timeout, IGXGrid** result) override {
        return this->Navigate(result, {id, flags, timeout}, timeout,
                              [&] { return automation::navigation::GXGrid(id, flags); });
    }
    HRESULT STDMETHODCALLTYPE CADView(LONG timeout, ICADView** result) override {
        return this->Navigate(result, {timeout}, timeout, [&] { return automation::navigation::CADView(); });
    }
    HRESULT STDMETHODCALLTYPE GroupCombo(LONG id, LONG flags, LONG timeout, IGroupCombo** result) override {
        if (result == nullptr) {
            return automation::FailWithoutText(E_POINTER);
        }
        return this->Navigate(result, {id, flags, timeout}, timeout, [&] {
            return automation::navigation::Control<ghGroupCombo>(automation::navigation::kGroupCombo,
                                                                 "GroupCombo", id, flags);
        });
    }
    HRESULT STDMETHODCALLTYPE RibCustomisationWidget(BSTR name, LONG id, LONG flags, LONG timeout,
                                                     IRibCustomisationWidget** result) override {
        return this->Navigate(result, {name, id, flags, timeout}, timeout, [&] {
            return automation::navigation::RibCustomisationWidget(automation::ToAnsi(name), id, flags);
        });
    }
    HRESULT STDMETHODCALLTYPE WindowByID(BSTR sid, LONG timeout, IBaseWindow** result) override {
        return this->Navigate(result, {sid, timeout}, timeout, [&] {
            return automation::navigation::WindowByName<ghBaseWindow>(automation::ToAnsi(sid));
        });
    }
    HRESULT STDMETHODCALLTYPE CADViewByID(BSTR sid, LONG timeout, ICADView** result) override {
        return this->Navigate(result, {sid, timeout}, timeout, [&] {
            return automation::navigation::WindowByName<ghCADView>(automation::ToAnsi(sid));
        });
    }
    HRESULT STDMETHODCALLTYPE CheckBoxByID(BSTR sid, LONG timeout, ICheckBox** result) override {
        return this->Navigate(result, {sid, timeout}, timeout, [&] {
            return automation::navigation::WindowByName<ghCheckBox>(automation::ToAnsi(sid));
        });
    }
    HRESULT STDMETHODCALLTYPE ButtonByID(BSTR sid, LONG timeout, IBaseWindow** result) override {
        return this->Navigate(result, {sid, timeout}, timeout, [&] {
            return automation::navigation::WindowByName<ghBaseWindow>(automation::ToAnsi(sid));
        });
    }
    HRESULT STDMETHODCALLTYPE TabCtrlByID(BSTR sid, LONG timeout, ITabControl** result) override {
        return this->Navigate(result, {sid, timeout}, timeout, [&] {
            return automation::navigation::WindowByName<ghTabControl>(automation::ToAnsi(sid));
        });
    }
    HRESULT STDMETHODCALLTYPE CADTreeByID(BSTR sid, LONG timeout, ITreeControl** result) override {
        return this->Navigate(result, {sid, timeout}, timeout, [&] {
            return automation::navigation::WindowByName<ghCADTree>(automation::ToAnsi(sid));
        });
    }
    HRESULT STDMETHODCALLTYPE EditByID(BSTR sid, LONG timeout, IBaseWindow** result) override {
        return this->Navigate(result, {sid, timeout}, timeout, [&] {
            return automation::navigation::WindowByName<ghBaseWindow>(automation::ToAnsi(sid));
        });
    }
    HRESULT STDMETHODCALLTYPE GXGridByID(BSTR sid, LONG timeout, IGXGrid** result) override {
        return this->Navigate(result, {sid, timeout}, timeout, [&] {
            return automation::navigation::WindowByName<ghGXGrid>(automation::ToAnsi(sid));
        });
    }
    HRESULT STDMETHODCALLTYPE ListBoxByID(BSTR sid, LONG timeout, IListBox** result) override {
        return this->Navigate(result, {sid, timeout}, timeout, [&] {
            return automation::navigation::WindowByName<ghListBox>(automation::ToAnsi(sid));
        });
    }
    HRESULT STDMETHODCALLTYPE ListViewByID(BSTR sid, LONG timeout, IListView** result) override {
        return this->Navigate(result, {sid, timeout}, timeout, [&] {
            return automation::navigation::WindowByName<ghListView>(automation::ToAnsi(sid));
        });
    }
    HRESULT STDMETHODCALLTYPE OptionTreeByID(BSTR sid, LONG timeout, IOptionTree** result) override {
        return this->Navigate(result, {sid, timeout}, timeout, [&] {
            return automation::navigation::WindowByName<ghOptionTree>(automation::ToAnsi(sid));
        });
    }
    HRESULT STDMETHODCALLTYPE TrackBarByID(BSTR sid, LONG timeout, ITrackBar** result) override {
        return this->Navigate(result, {sid, timeout}, timeout, [&] {
            return automation::navigation::WindowByName<ghTrackBar>(automation::ToAnsi(sid));
        });
    }
    HRESULT STDMETHODCALLTYPE ComboBoxByID(BSTR sid, LONG timeout, IComboBox** result) override {
        if (result == nullptr) {
            return automation::FailWithoutText(E_POINTER);
        }
        return this->Navigate(result, {sid, timeout}, timeout, [&] {
            return automation::navigation::WindowByName<ghComboBox>(automation::ToAnsi(sid));
        });
    }
    HRESULT STDMETHODCALLTYPE GroupComboByID(BSTR sid, LONG timeout, IGroupCombo** result) override {
        if (result == nullptr) {
            return automation::FailWithoutText(E_POINTER);
        }
        return this->Navigate(result, {sid, timeout}, timeout, [&] {
            return automation::navigation::WindowByName<ghGroupCombo>(automation::ToAnsi(sid));
        });
    }
    HRESULT STDMETHODCALLTYPE RibCustomisationWidgetByID(BSTR sid, LONG timeout,
                                                         IRibCustomisationWidget** result) override {
        if (result == nullptr) {
            return automation::FailWithoutText(E_POINTER);
        }
        return this->Navigate(result, {sid, timeout}, timeout, [&] {
            return automation::navigation::WindowByName<ghRibCustomiser>(automation::ToAnsi(sid));
        });
    }
    HRESULT STDMETHODCALLTYPE position(LONG x, LONG y) override {
        return this->Run({x, y}, [&](auto& window) { window.Position(x, y); });
    }
    HRESULT STDMETHODCALLTYPE get_Left(LONG* result) override {
        if (result == nullptr) {
            return automation::FailWithoutText(E_POINTER);
        }
        return this->Get(result, [](const auto& window) { return window.Left(); });
    }
    HRESULT STDMETHODCALLTYPE get_Top(LONG* result) override {
        if (result == nullptr) {
            return automation::FailWithoutText(E_POINTER);
        }
        return this->Get(result, [](const auto& window) { return window.Top(); });
    }
    HRESULT STDMETHODCALLTYPE get_ControlID(int* result) override {
        if (result == nullptr) {
            return automation::FailWithoutText(E_POINTER);
        }
        return this->Get(result, [](const auto& window) { return window.ControlID(); });
    }
    HRESULT STDMETHODCALLTYPE PositionWithMovingMessage(LONG x, LONG y) override {
        return this->Run({x, y}, [&](auto& window) { window.PositionWithMovingMessage(x, y); });
    }
    HRESULT STDMETHODCALLTYPE get_AccessibleObject(IDispatch** result) override {
        *result = nullptr;
        return this->Run({result}, [&](const auto& window) {
            return automation::AccessibleObject(window.Window(), result);
        });
    }

protected:
    // Waits up to `timeout` seconds for what the navigation looks for and hands it out: S_FALSE and a null
    // object when it did not appear. The navigation is made inside the guard, as it converts texts.
    template <class Result, class MakeNavigation>
    HRESULT Navigate(Result** result, automation::Arguments arguments, LONG timeout,
                     MakeNavigation makeNavigation, const char* member = __builtin_FUNCTION()) noexcept {
        *result = nullptr;
        return this->RunFor(
            result, arguments,
            [&](const ghBaseWindow& window) {
                return automation::Wrap(automation::WaitForTarget(window, timeout, makeNavigation()), result);
            },
            member);
    }
};
