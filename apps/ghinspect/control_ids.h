// Numbers by which scripts and tests reach the inspector's controls.
#pragma once

namespace inspector::ids {

inline constexpr char kWindowClass[] = "GhosthandInspector";

enum Control : int {
    kFind = 101, // edit control: what to look for
    kFindNext = 102,
    kHiddenWindows = 103, // check box
    kRefresh = 104,
    kTree = 105, // programs, and below each its windows
    kCrosshair = 110,
    kPick = 111,
    kShow = 112,
    kName = 120,     // static: the selected window or item
    kVerdict = 121,  // static: kind and time of the call, or why there is none
    kLanguage = 122, // drop-down list
    kCopy = 123,
    kCall = 124,      // edit control, read-only
    kPages = 130,     // tab control: "Facts", "Members"
    kFacts = 131,     // list view: name, value
    kMembers = 132,   // list view: member, value, parameters
    kHelp = 133,      // static: what the selected member does
    kArguments = 134, // edit control
    kDo = 135,
    kAnswer = 136, // edit control, read-only
    kStatus = 140,
    kLanguageLabel = 150,
    kArgumentsLabel = 151,
    kAnswerLabel = 152,
    kTreeLabel = 153,
    kFindLabel = 154,
    kPickLabel = 155,
    kFindPrevious = 201, // by its key alone, like those that follow
    kGoToFind = 202,
    kNextPage = 203,
};

} // namespace inspector::ids
