// Tree views of a host of its own process.
#include "controls/ghTreeControl.h"
#include "controls/ghTreeItem.h"
#include "hostlink/module_instance.h"
#include "hostlink/registered_messages.h"
#include "support/code_page.h"
#include "support/sample_host.h"
#include "support/this_module.h"

#include <gmock/gmock.h>

#include <climits>

namespace {

using sample_host::Delivery;
using sample_host::LogRecord;
using sample_host::Misbehaviour;
using support::Eventually;
using support::SampleHost;
using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::Field;
using testing::IsEmpty;
using testing::Not;
using testing::StrEq;
namespace ids = sample_host::ids;

class Tree : public testing::Test {
protected:
    static void SetUpTestSuite() {
        hostlink::SetModuleInstance(support::ThisModule());
        host = std::make_unique<SampleHost>("--page trees");
        host->WaitForWindow(NameOf(ids::kLargeTree)); // the last one that the page makes
    }
    static void TearDownTestSuite() { host.reset(); }

    static std::string NameOf(int id) { return "Trees." + std::to_string(id); }
    static ghTreeControl TreeWithId(int id) { return ghTreeControl(host->Window(NameOf(id))); }

    // "(none)" where there is no item.
    static std::string TextOf(const std::unique_ptr<ghTreeItem>& item) {
        return item ? item->Text() : "(none)";
    }

    static std::vector<LogRecord> Notifications(UINT code) {
        std::vector<LogRecord> found;
        const std::string end = " code=" + std::to_string(static_cast<int>(code));
        for (const LogRecord& record : host->Log().Records(WM_NOTIFY))
            if (std::string(record.text).ends_with(end))
                found.push_back(record);
        return found;
    }

    // The messages of a range, as numbers.
    static std::vector<UINT> Requests(HWND window) {
        std::vector<UINT> found;
        for (const LogRecord& record : host->Log().Records())
            if (record.window == reinterpret_cast<std::uintptr_t>(window) && record.message >= TV_FIRST &&
                record.message < TV_FIRST + 0x100)
                found.push_back(record.message);
        return found;
    }

    static inline std::unique_ptr<SampleHost> host;
    ghTreeControl parts = TreeWithId(ids::kPartsTree);
};

TEST_F(Tree, FindsByPathOfNumbers) {
    ASSERT_TRUE(parts.IsValid());
    EXPECT_TRUE(parts.RealInput()); // trees do not take posted clicks
    for (const char* third : {"3", "3/", "/3", "3.-:"})
        EXPECT_EQ(TextOf(parts.ItemByNumPath(third)), "Locked") << third;
    // What is not a number above 0 means the first one.
    for (const char* secondOfFirst : {"1|2", "0/2", "x\\2", " +0.2"})
        EXPECT_EQ(TextOf(parts.ItemByNumPath(secondOfFirst)), "Hole 2") << secondOfFirst;
    EXPECT_EQ(TextOf(parts.ItemByNumPath("1:4:1")), "Never reached by name");
    EXPECT_EQ(TextOf(parts.ItemByNumPath("|/.")), "Box");
    for (const char* none : {"", "99", "1/99", "3/1", "1/2/1/1", "2147483647", "99999999999"})
        EXPECT_EQ(parts.ItemByNumPath(none), nullptr) << none;
    EXPECT_EQ(TextOf(parts.ItemByNumPath(std::string(32766, '/') + "3")), "Locked");
    EXPECT_EQ(parts.ItemByNumPath(std::string(32767, '/') + "3"), nullptr);
}

TEST_F(Tree, FindsByPathOfNames) {
    if (!support::HasCharacterPerByte()) {
        GTEST_SKIP() << support::kNoCharacterPerByte;
    }
    EXPECT_EQ(TextOf(parts.ItemByPath("Box|Hole 2|Thread")), "Thread");
    EXPECT_EQ(TextOf(parts.ItemByPath("|Box||hole 2|")), "hole 2");
    EXPECT_EQ(TextOf(parts.ItemByPath("Tr\xE4ger|\xC4nderung")), "\xC4nderung");
    EXPECT_EQ(TextOf(parts.ItemByPath("Tr\xE4ger|Caf\xE9 ?")), "Caf\xE9 ?"); // outside the code page
    EXPECT_EQ(TextOf(parts.ItemByPath("|")), "Box");
    // The first namesake decides; no other separator than "|"; whole texts only, in their letter case.
    for (const char* none : {"Box|Hole 2|Never reached by name", "Box/Hole 1", "Bo", "box", "Locked|B", ""})
        EXPECT_EQ(parts.ItemByPath(none), nullptr) << none;
    EXPECT_EQ(parts.ItemByPath(std::string(5000, 'a')), nullptr);
}

TEST_F(Tree, ReadsTextsUpTo1023Bytes) {
    for (const auto& [path, length] : {std::pair("5/1", 1022), {"5/2", 1023}, {"5/3", 1023}, {"5/4", 1023}}) {
        const std::string text = TextOf(parts.ItemByNumPath(path));
        EXPECT_EQ(text.size(), static_cast<std::size_t>(length));
        EXPECT_TRUE(text.ends_with("xxx"));
    }
}

TEST_F(Tree, FillsLazyBranchesOnTheWayToANumber) {
    const ghTreeControl lazy = TreeWithId(ids::kLazyTree);
    EXPECT_EQ(TextOf(lazy.ItemByNum(1)), "Assembly 1");
    EXPECT_FALSE(lazy.ItemByNum(1)->Expanded());
    for (const int none : {0, -1, INT_MIN})
        EXPECT_EQ(lazy.ItemByNum(none), nullptr);
    EXPECT_FALSE(lazy.ItemByNum(1)->Expanded());

    EXPECT_EQ(TextOf(lazy.ItemByNum(3)), "Feature 1");
    EXPECT_TRUE(lazy.ItemByPath("Assembly 1|Part 1")->Expanded());
    EXPECT_FALSE(lazy.ItemByPath("Assembly 1|Part 2")->Expanded());
    EXPECT_EQ(TextOf(lazy.ItemByPath("Assembly 3|Part 2|Feature 3")), "Feature 3");
    EXPECT_EQ(TextOf(lazy.ItemByNumPath("2/3/1")), "Feature 1");
}

TEST_F(Tree, WalksWithoutAMessageMoreThanItTakes) {
    const ghTreeControl fixed = TreeWithId(ids::kFixedTree);
    host->ClearLog();
    const auto item = fixed.ItemByNum(5); // below the second child of the first item
    EXPECT_THAT(Requests(fixed.Window()),
                ElementsAre(TVM_GETNEXTITEM, TVM_EXPAND, TVM_GETNEXTITEM, TVM_EXPAND, TVM_GETNEXTITEM,
                            TVM_GETNEXTITEM, TVM_EXPAND, TVM_GETNEXTITEM, TVM_EXPAND, TVM_GETNEXTITEM,
                            TVM_GETNEXTITEM, TVM_GETNEXTITEM));
    EXPECT_EQ(TextOf(item), "hole 2");
}

TEST_F(Tree, SurvivesItemsThatGoDuringAWalk) {
    const ghTreeControl lazy = TreeWithId(ids::kLazyTree);
    constexpr int kAssemblies = 3 * (1 + 3 + 3 * 3);
    ASSERT_NE(lazy.ItemByPath("Vanishing"), nullptr);
    // An item of that name goes when the walk has expanded it, and with it the way to what follows.
    EXPECT_EQ(lazy.ItemByNum(INT_MAX), nullptr);
    ASSERT_NE(lazy.ItemByPath("Vanishing"), nullptr); // the second one
    EXPECT_EQ(lazy.ItemByPath("Vanishing|x"), nullptr);
    EXPECT_EQ(lazy.ItemByPath("Vanishing"), nullptr);
    EXPECT_EQ(TextOf(lazy.ItemByNum(kAssemblies + 1)), "After it");
    EXPECT_EQ(lazy.ItemByNum(kAssemblies + 2), nullptr);

    const auto afterIt = lazy.ItemByPath("After it");
    SendMessageA(lazy.Window(), TVM_DELETEITEM, 0, reinterpret_cast<LPARAM>(afterIt->Item()));
    EXPECT_TRUE(afterIt->IsValid());
    EXPECT_EQ(afterIt->Text(), "");
    EXPECT_FALSE(afterIt->Expanded());
    EXPECT_EQ(afterIt->ContextMenu(), nullptr);
}

TEST_F(Tree, TellsTheStateOfAnItem) {
    const auto overlay = parts.ItemByPath("Overlay 2");
    EXPECT_EQ(overlay->StateImage(), 2); // its state image is 1
    EXPECT_EQ(parts.ItemByPath("Locked")->StateImage(), 0);

    const auto box = parts.ItemByPath("Box");
    host->ClearLog();
    for (const bool expanded : {false, true, false}) {
        box->SetExpanded(expanded);
        EXPECT_EQ(box->Expanded(), expanded);
    }
    EXPECT_THAT(host->Log().Records(hostlink::MSG_GH_SYNC), IsEmpty());
}

TEST_F(Tree, SelectsAndTellsTheHostBeforeItReturns) {
    SendMessageA(parts.Window(), TVM_SELECTITEM, TVGN_CARET, 0);
    EXPECT_EQ(parts.SelectedItem(), nullptr);
    host->ClearLog();
    EXPECT_TRUE(parts.SelectItemByPath("Box|Hole 1"));
    EXPECT_THAT(Notifications(TVN_SELCHANGEDA), Not(IsEmpty()));
    EXPECT_EQ(TextOf(parts.SelectedItem()), "Hole 1");
    EXPECT_TRUE(parts.SelectItem("3"));
    EXPECT_EQ(TextOf(parts.SelectedItem()), "Locked");
    EXPECT_TRUE(parts.SelectItemByNum(1));
    const auto box = parts.SelectedItem();
    EXPECT_EQ(TextOf(box), "Box");

    box->SetSelected(false);
    EXPECT_TRUE(box->Selected());
    const auto locked = parts.ItemByPath("Locked");
    EXPECT_FALSE(locked->Selected());
    locked->SetSelected(true);
    EXPECT_TRUE(locked->Selected());
    EXPECT_FALSE(box->Selected());

    EXPECT_FALSE(parts.SelectItemByPath("Box|Hole 3"));
    EXPECT_FALSE(parts.SelectItem(""));
    EXPECT_TRUE(locked->Selected());
    host->ClearLog();
    EXPECT_FALSE(parts.SelectItemByPath(std::string(32768, '|')));
    EXPECT_FALSE(parts.SelectItem(std::string(32768, '1')));
    EXPECT_THAT(host->Log().Records(), IsEmpty()); // not even activated
}

TEST_F(Tree, RenamesByEditingTheLabel) {
    if (!support::HasCharacterPerByte()) {
        GTEST_SKIP() << support::kNoCharacterPerByte;
    }
    const auto item = parts.ItemByPath("Box|Hole 1");
    host->ClearLog();
    item->SetText("Bohrung \xF6");
    EXPECT_EQ(item->Text(), "Bohrung \xF6");
    EXPECT_TRUE(item->Selected());
    EXPECT_THAT(Notifications(TVN_ENDLABELEDITA), testing::SizeIs(1));
    std::vector<WORD> posted; // to the edit control's parent
    for (const LogRecord& record : host->Log().Records(WM_COMMAND, parts.Window()))
        if (record.delivery == Delivery::Posted)
            posted.push_back(HIWORD(record.wParam));
    EXPECT_THAT(posted, ElementsAre(EN_UPDATE, EN_CHANGE));

    item->SetText("!refused by the program");
    EXPECT_EQ(item->Text(), "Bohrung \xF6");
    const std::string longest(259, 'n'); // an edit control of a label takes no more
    item->SetText(longest);
    EXPECT_EQ(item->Text(), longest);
    item->SetText("Hole 1");
    EXPECT_EQ(item->Text(), "Hole 1");
    EXPECT_EQ(SendMessageA(parts.Window(), TVM_GETEDITCONTROL, 0, 0), 0); // nothing is left open
}

TEST_F(Tree, LeavesLabelsAloneThatCannotBeEdited) {
    const auto locked = parts.ItemByPath("Locked");
    locked->SetText("Unlocked");
    EXPECT_EQ(locked->Text(), "Locked");
    const auto fixed = TreeWithId(ids::kFixedTree).ItemByPath("Box");
    fixed->SetText("Sphere");
    EXPECT_EQ(fixed->Text(), "Box");
    EXPECT_TRUE(fixed->Selected()); // this much happens
}

class TreeMenu : public Tree {
protected:
    // Whether the menu has an entry that begins so; the menu is closed.
    static bool HasEntry(std::unique_ptr<ghControlBar> menu, const std::string& text) {
        if (menu == nullptr)
            return false;
        const bool found = menu->GetItemByID(text, 0)->IsValid();
        menu->CloseMenu();
        EXPECT_TRUE(Eventually([&] { return !IsWindow(menu->Window()); }));
        return found;
    }
};

TEST_F(TreeMenu, OpensAtAnItemOrBelowAllItems) {
    if (!support::HasCharacterPerByte()) {
        GTEST_SKIP() << support::kNoCharacterPerByte;
    }
    const auto beam = parts.ItemByPath("Tr\xE4ger|\xC4nderung");
    EXPECT_TRUE(HasEntry(beam->ContextMenu(), "Rename \xC4nderung"));
    ASSERT_TRUE(parts.SelectItemByPath("Locked"));
    EXPECT_TRUE(HasEntry(parts.ContextMenu(true), "Rename Locked"));
    for (const char* branch : {"Box", "Tr\xE4ger", "Long texts"}) // leaves room below the items
        parts.ItemByPath(branch)->SetExpanded(false);
    EXPECT_TRUE(HasEntry(parts.ContextMenu(false), "Add item"));
    SendMessageA(parts.Window(), TVM_SELECTITEM, TVGN_CARET, 0);
    EXPECT_TRUE(HasEntry(parts.ContextMenu(true), "Add item"));
}

TEST_F(Tree, FindsTheLastOfManyItems) {
    const ghTreeControl large = TreeWithId(ids::kLargeTree);
    EXPECT_EQ(TextOf(large.ItemByNumPath("10000")), "Item 9999");
    EXPECT_EQ(TextOf(large.ItemByPath("Item 9999")), "Item 9999");
}

TEST_F(Tree, EndsAWalkWhoseTreeGoes) {
    const ghTreeControl large = TreeWithId(ids::kLargeTree);
    const auto first = large.ItemByNum(1);
    SampleHost::Misbehave(large.Window(), Misbehaviour::DestroyLater, 20);
    EXPECT_EQ(large.ItemByPath("Item 9999"), nullptr);
    EXPECT_FALSE(IsWindow(large.Window()));

    EXPECT_EQ(large.ItemByNum(1), nullptr);
    EXPECT_EQ(large.SelectedItem(), nullptr);
    EXPECT_EQ(first->Text(), "");
    EXPECT_FALSE(first->Selected());
    EXPECT_EQ(first->ContextMenu(), nullptr);
    first->SetText("x");
    EXPECT_FALSE(ghTreeControl(large).SelectItemByNum(1));
    EXPECT_FALSE(host->HasEnded());
}

} // namespace
