#include "server/registrar.h"

#include <memory>
#include <ranges>

namespace server {
namespace {

struct KeyCloser {
    using pointer = HKEY;
    void operator()(HKEY key) const noexcept { RegCloseKey(key); }
};
using UniqueKey = std::unique_ptr<HKEY, KeyCloser>;

struct RegistryFailure {
    LSTATUS status;
};

bool IsMissing(LSTATUS status) {
    return status == ERROR_FILE_NOT_FOUND || status == ERROR_PATH_NOT_FOUND;
}

void Check(LSTATUS status) {
    if (status != ERROR_SUCCESS)
        throw RegistryFailure{status};
}

void CheckUnlessMissing(LSTATUS status) {
    if (!IsMissing(status))
        Check(status);
}

HKEY PredefinedKey(RootKey root) {
    switch (root) {
    case RootKey::CurrentUser:
        return HKEY_CURRENT_USER;
    case RootKey::LocalMachine:
        return HKEY_LOCAL_MACHINE;
    case RootKey::Users:
        return HKEY_USERS;
    case RootKey::CurrentConfig:
        return HKEY_CURRENT_CONFIG;
    case RootKey::ClassesRoot:
        break;
    }
    return HKEY_CLASSES_ROOT;
}

UniqueKey CreateKey(HKEY parent, const std::wstring& name) {
    HKEY key = nullptr;
    Check(RegCreateKeyExW(parent, name.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE, KEY_READ | KEY_WRITE,
                          nullptr, &key, nullptr));
    return UniqueKey(key);
}

// Null when there is no such key.
UniqueKey OpenKey(HKEY parent, const std::wstring& name) {
    HKEY key = nullptr;
    CheckUnlessMissing(RegOpenKeyExW(parent, name.c_str(), 0, KEY_READ | KEY_WRITE, &key));
    return UniqueKey(key);
}

bool HasKeys(HKEY key) {
    DWORD count = 0;
    Check(RegQueryInfoKeyW(key, nullptr, nullptr, nullptr, &count, nullptr, nullptr, nullptr, nullptr,
                           nullptr, nullptr, nullptr));
    return count != 0;
}

void SetText(HKEY key, const wchar_t* name, DWORD type, const std::wstring& text) {
    const auto size = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
    Check(RegSetValueExW(key, name, 0, type, reinterpret_cast<const BYTE*>(text.c_str()), size));
}

// A null name means the default value.
void SetValue(HKEY key, const wchar_t* name, const ScriptValue& value) {
    if (const auto* text = std::get_if<std::wstring>(&value)) {
        SetText(key, name, REG_SZ, *text);
    } else if (const auto* expandable = std::get_if<ExpandableText>(&value)) {
        SetText(key, name, REG_EXPAND_SZ, expandable->text);
    } else if (const auto* number = std::get_if<std::uint32_t>(&value)) {
        Check(RegSetValueExW(key, name, 0, REG_DWORD, reinterpret_cast<const BYTE*>(number), sizeof *number));
    } else if (const auto* bytes = std::get_if<std::vector<std::uint8_t>>(&value)) {
        Check(RegSetValueExW(key, name, 0, REG_BINARY, bytes->data(), static_cast<DWORD>(bytes->size())));
    }
}

void RegisterKey(HKEY parent, const ScriptKey& key);

void RegisterContents(HKEY key, const std::vector<NamedValue>& values, const std::vector<ScriptKey>& keys) {
    for (const NamedValue& value : values)
        SetValue(key, value.name.c_str(), value.value);
    for (const ScriptKey& child : keys)
        RegisterKey(key, child);
}

void RegisterKey(HKEY parent, const ScriptKey& key) {
    if (key.rule == KeyRule::ForceRemove || key.rule == KeyRule::Delete)
        CheckUnlessMissing(RegDeleteTreeW(parent, key.name.c_str()));
    if (key.rule == KeyRule::Delete)
        return;
    const UniqueKey created = CreateKey(parent, key.name);
    if (key.defaultValue)
        SetValue(created.get(), nullptr, *key.defaultValue);
    RegisterContents(created.get(), key.values, key.keys);
}

void UnregisterKey(HKEY parent, const ScriptKey& key);

void UnregisterContents(HKEY key, const std::vector<NamedValue>& values, const std::vector<ScriptKey>& keys) {
    for (const ScriptKey& child : keys | std::views::reverse)
        UnregisterKey(key, child);
    for (const NamedValue& value : values)
        CheckUnlessMissing(RegDeleteValueW(key, value.name.c_str()));
}

void UnregisterKey(HKEY parent, const ScriptKey& key) {
    if (key.rule == KeyRule::Delete)
        return;
    if (key.rule == KeyRule::ForceRemove) {
        CheckUnlessMissing(RegDeleteTreeW(parent, key.name.c_str()));
        return;
    }
    UniqueKey opened = OpenKey(parent, key.name);
    if (!opened)
        return;
    UnregisterContents(opened.get(), key.values, key.keys);
    if (key.rule == KeyRule::NoRemove)
        return;
    if (!HasKeys(opened.get())) {
        opened.reset();
        CheckUnlessMissing(RegDeleteKeyW(parent, key.name.c_str()));
    } else if (key.defaultValue) {
        CheckUnlessMissing(RegDeleteValueW(opened.get(), nullptr));
    }
}

using ContentsAction = void(HKEY, const std::vector<NamedValue>&, const std::vector<ScriptKey>&);

HRESULT ForEachRoot(std::span<const ScriptRoot> roots, ContentsAction action) noexcept {
    try {
        for (const ScriptRoot& root : roots)
            action(PredefinedKey(root.root), root.values, root.keys);
        return S_OK;
    } catch (const RegistryFailure& failure) {
        return HRESULT_FROM_WIN32(failure.status);
    }
}

} // namespace

HRESULT RegisterKeys(std::span<const ScriptRoot> roots) noexcept {
    return ForEachRoot(roots, RegisterContents);
}

HRESULT UnregisterKeys(std::span<const ScriptRoot> roots) noexcept {
    return ForEachRoot(roots, UnregisterContents);
}

} // namespace server
