// Class names, captions, command and control identifiers of the sample host, for the programs and
// scripts that drive it. A script writes the numbers: the comment beside each group has them.
#pragma once

namespace sample_host::ids {

inline constexpr char kFrameClass[] = "SampleHostFrame"; // replaced by --frame-class
inline constexpr char kFrameCaption[] = "Ghosthand Sample Host";
inline constexpr char kDocumentClass[] = "SampleHostDocument";
inline constexpr char kPageClass[] = "SampleHostPage";   // an MDI child that holds the controls of a page
inline constexpr char kPanelClass[] = "SampleHostPanel"; // a child window with or without caption
inline constexpr char kCadViewClass[] = "SampleHostView";
inline constexpr char kGridClass[] = "SampleHostGrid";
inline constexpr char kOptionTreeClass[] = "qvaOptionTree";
inline constexpr char kCompositeComboClass[] = "SampleHostComboBox";
inline constexpr char kTreeClass[] = "SampleHostTree"; // the window of --many-children

// Commands: wParam of WM_COMMAND to the frame.
enum Command : unsigned {
    // &File
    kFileNew = 101,     // "&New\tCtrl+N": opens one more document
    kFileOpen = 102,    // "&Open...\tCtrl+O"
    kFileSave = 103,    // "&Save\tCtrl+S"
    kFileSaveAs = 104,  // "Save &As..."
    kFileClose = 105,   // "&Close": closes the active document
    kFilePrint = 106,   // "&Print...\tCtrl+P", disabled
    kFileRecent1 = 107, // "Recent &Files" > "&1 Bracket.part"
    kFileRecent2 = 108, // "Recent &Files" > "&2 Housing.part"
    kFileExit = 109,    // "E&xit"
    // &Edit
    kEditUndo = 201, // "&Undo\tCtrl+Z", disabled
    kEditCut = 202,
    kEditCopy = 203,
    kEditPaste = 204,
    kEditSelectAll = 205,
    // &View: each of the first four toggles its check mark
    kViewToolbar = 301,   // "&Toolbar", checked; shows and hides the tool bar
    kViewStatusBar = 302, // "&Status Bar", checked; shows and hides the status bar
    kViewGrid = 303,      // "&Grid\tF7", not checked
    kViewSnap = 304,      // "S&nap", checked and disabled
    // "&Zoom", a submenu: one of the three has the radio mark
    kZoomHalf = 311,   // "&50 %"
    kZoomFull = 312,   // "&100 %", marked at first
    kZoomDouble = 313, // "&200 %"
    // "&Zoom" > "&Fit", a submenu of the submenu
    kZoomFitWidth = 314,
    kZoomFitPage = 315,
    // &Pages: one command for every line of page_table.cpp
    kPageDocument = 600,
    kPageSettings = 601,     // modal dialog "Settings"
    kPageFind = 602,         // modeless dialog "Find" with a modal frame
    kPagePalette = 603,      // popup "Palette" without a modal frame
    kPageTwins = 604,        // modeless dialog "Twins"
    kPageLate = 605,         // modal dialog "Late"
    kPageAbout = 606,        // modal dialog "About Ghosthand Sample Host", also in &Help
    kPagePanels = 607,       // MDI page "Panels": child windows with captions
    kPageContextMenus = 608, // MDI page "Context menus": three areas with a context menu of each kind
    kPageManyItems = 609,    // MDI page "Many items": tool bar with 200 buttons, and a menu with 500 items
    kPageCad = 610,          // MDI page "CAD": model tree, view, material and parameters
    kPageOptions = 611,      // modeless dialog "Options" with an option tree
    kPageRibbon = 612,       // modeless dialog "Customise ribbon"
    kPageLargeData = 613,    // MDI page "Large data": a grid of 100 x 100 and a tree of 1000 options
    kPagePeers = 614,        // window "Peers": what is measured of several tools
    kPageTrees = 630,        // MDI page "Trees": four tree views
    kPageListViews = 631,    // MDI page "List views": four list views
    kPageListBoxes = 620,    // MDI page "List boxes"
    kPageComboBoxes = 621,   // MDI page "Combo boxes"
    kPageTabs = 622,         // MDI page "Tabs"
    kPageTrackBars = 623,    // MDI page "Track bars"
    kPageCheckBoxes = 624,   // MDI page "Check boxes"
    kPageSaveDrawing = 625,  // modeless dialog "Save drawing" with an address bar
    kPageOpenDrawing = 626,  // modeless dialog "Open drawing"
    // Drawing commands, on the tool bars and in the context menus of the host's own kind.
    kDrawLine = 701,       // "Line"
    kDrawCircle = 702,     // "Circle"
    kDrawSpline = 703,     // "Spline", disabled
    kDrawOrtho = 704,      // "Ortho", toggles
    kDrawSnap = 705,       // "Snap", toggles, marked at first
    kDrawArc = 706,        // "Arc", opens a popup
    kDrawArcCenter = 707,  // "Center" in "Arc"
    kDrawArcTangent = 708, // "Tangent" in "Arc"
    kDrawHatch = 709,      // "Hatch", opens a popup
    kDrawHatchLines = 710, // "Lines" in "Hatch"
    kDrawHatchDots = 711,  // "Dots" in "Hatch", toggles
    kDrawErase = 712,      // "Erase All"
    // Items of the system's own context menu
    kContextCopy = 721,       // "&Copy"
    kContextPaste = 722,      // "&Paste", disabled
    kContextSnap = 723,       // "&Snap", toggles
    kContextOrderFront = 724, // "&Order" > "To &Front"
    kContextOrderBack = 725,  // "&Order" > "To &Back"
    // Items of the context menus of the CAD page
    kPartHide = 731,     // "&Hide part", disabled where no part is under the cursor
    kPartsShowAll = 732, // "Show &all parts"
    kCameraFront = 733,  // "&Front"
    kCameraTop = 734,    // "&Top"
    kCameraReset = 735,  // "&Reset"
    kItemVisible = 736,  // "&Visible", toggles
    kItemStarred = 737,  // "&Starred", toggles
    kItemRed = 738,      // "&Red"
    kItemGreen = 739,
    kItemBlue = 740,
    // Items of the context menus of trees and list views
    kTreeRename = 751,  // "Rename <text of the item>"
    kTreeDelete = 752,  // "Delete"
    kTreeAddItem = 753, // "Add item", below the items
    kListOpen = 754,    // "Open <index of the item>"
    kListAddItem = 755, // "Add item", below the items
    // Context menus of lists and tab controls
    kItemAdd = 761,          // "Add item", where there is no item
    kItemProperties = 762,   // "Properties of <text of the item>"
    kItemDelete = 763,       // "Delete"
    kFirstManyButton = 2000, // "Button 0" and on, on the bar of 200 buttons
    kFirstManyItem = 3000,   // "Item 0" and on, in the menu of 500 items
    // The window "Peers"
    kFirstPeersCommand = 4000, // "Command 0" to "Command 49" in "Menu 0" to "Menu 4"
    kFirstPeersTool = 4100,    // "Tool 0" to "Tool 49" on its tool bar
    kPeersForm = 4200,         // opens the modal dialog "Form"
    kPeersQuestion = 4201,     // opens the modal dialog "Question", late; its text becomes the result, late
    // &Window
    kWindowCascade = 401,
    kWindowTileHorizontally = 402,
    kWindowTileVertically = 403,
    kWindowArrange = 404,
    // The list of MDI children at the end of &Window counts from here.
    kWindowFirstChild = 0xFF00,
};

// Controls. A number means the same kind of control in every dialog and page that has it.
enum Control : unsigned {
    kEdit = 1001,       // single-line edit control; the edit control of a document has it too
    kSecondEdit = 1002, // multi-line edit control
    kLabel = 1003,      // static text
    kSecondLabel = 1004,
    kApply = 1005,          // push button "&Apply"
    kDisabledButton = 1006, // push button "&Locked", disabled
    kCheckBox = 1010,       // automatic, two states
    kTriStateBox = 1011,    // automatic, three states
    kManualBox = 1012,      // BS_CHECKBOX: the dialog itself toggles it
    kDisabledBox = 1013,
    kGroupBox = 1014,
    kRadioMetric = 1015, // checked at first
    kRadioImperial = 1016,
    kDropDownList = 1020, // combo box without edit control
    kDropDown = 1021,     // combo box with edit control
    kListBox = 1022,
    kRichEdit = 1023,             // class "RichEdit20A", where the system has it
    kOpenNested = 1030,           // push button "&Nested...": opens the modal dialog "Nested"
    kCloseByCode = 1031,          // push button "C&lose": closes the modeless dialog
    kHiddenTab = 1040,            // child dialog, hidden
    kShownTab = 1041,             // child dialog, visible
    kPanelLeft = 1050,            // panel "Left panel"
    kPanelRight = 1051,           // panel "Right panel"
    kPanelInner = 1052,           // panel "Inner panel" in "Right panel"
    kStandardBar = 1080,          // "ToolbarWindow32" with the caption "Standard"
    kDrawBar = 1081,              // "BCGPToolBar:sample" with the caption "Draw"
    kModifyBar = 1082,            // "BCGToolBar:sample" with the caption "Modify"
    kOwnMenuArea = 1085,          // panel: a right click opens a popup "BCGPopupMenu"
    kProfessionalMenuArea = 1086, // panel: a right click opens a popup "Afx:SamplePopup"
    kSystemMenuArea = 1087,       // panel: a right click opens a system menu
    kManyButtonsBar = 1088,       // "ToolbarWindow32" with 200 buttons
    kStatusBar = 1090,
    kCadTree = 1100,           // model tree, a "SysTreeView32" that answers hlWM_REQUEST_CAD_TREE_INFORMATION
    kCadView = 1101,           // view of the model
    kMaterial = 1102,          // group combo: "Metals" and "Plastics"
    kParameterGrid = 1103,     // grid: name, value, unit of each parameter
    kPlainTree = 1104,         // "SysTreeView32" that answers no requests of the host
    kOptionTree = 1110,        // "qvaOptionTree"
    kRibbonWidget = 1120,      // "Static" with the caption "Ribbon forms"
    kLargeGrid = 1130,         // grid of 100 x 100 cells, each with its row and column: "7,12"
    kLargeOptionTree = 1131,   // 10 groups "Group 0" and on, each with 100 items "Item 0" and on, and
                               // one more "Group 3"
    kPartsTree = 1140,         // tree whose labels can be edited, all but "Locked", and not to "!..."
    kFixedTree = 1141,         // the same items, no editing
    kLazyTree = 1142,          // filled when expanded: "Assembly 1" > "Part 1" > "Feature 1"; each has three
    kLargeTree = 1143,         // "Item 0" to "Item 9999", no branches
    kPartsList = 1150,         // report mode, three columns, 40 rows
    kLayersList = 1151,        // with check boxes
    kSingleList = 1152,        // list mode, single selection
    kLargeList = 1153,         // "Item 0" to "Item 9999"
    kFileName = 1148,          // name field of the dialog "Open drawing"; that of "Save drawing" is kEdit
    kAddressBar = 1001,        // "ToolbarWindow32" of the dialog "Save drawing", with the name field's number
    kMultipleList = 1200,      // list box with multiple selection; kListBox has single selection
    kExtendedList = 1201,      // list box with extended selection
    kOwnerDrawnList = 1202,    // list box that keeps no strings
    kSimpleCombo = 1210,       // combo box whose list is always shown
    kOwnerDrawnCombo = 1211,   // keeps strings
    kBareCombo = 1212,         // keeps no strings
    kCompositeCombo = 1213,    // "SampleHostComboBox" and, with the same number, the combo box inside
    kExtendedCombo = 1214,     // "ComboBoxEx32"
    kQuietPanel = 1215,        // panel with WS_EX_NOPARENTNOTIFY
    kInnerQuietPanel = 1216,   // one more in it
    kQuietCombo = 1217,        // drop-down list in the inner one
    kTabs = 1220,              // tab control with one row
    kTabRows = 1221,           // with "Layer 1" to "Layer 20" in several rows
    kLongTabs = 1222,          // four tabs with texts of 1022, 1023, 1024 and 5000 letters
    kHorizontalBar = 1230,     // track bar from 0 to 100
    kVerticalBar = 1231,       // track bar from -50 to 50
    kManualTriStateBox = 1240, // BS_3STATE: the page itself advances it
    kStubbornBox = 1241,       // BS_CHECKBOX: never changes
    // The window "Peers"
    kPeersBar = 1300,      // "ToolbarWindow32" with 50 buttons
    kPeersList = 1301,     // "Row 0" to "Row 999"
    kPeersTree = 1302,     // "Node 0" to "Node 999", no branches
    kPeersDeepTree = 1303, // "Assembly 0" to 9, each with "Part 0" to 9, each with "Feature 0" to 99
    kPeersResult = 1304,   // static text
    // The dialog "Form": four edit controls, two check boxes, a radio button, two combo boxes, a list box
    kFirstPeersField = 1310,
    // --many-children N: descendants have the ids from kFirstOfMany on, the last one is an edit control.
    kFirstOfMany = 10000,
};

} // namespace sample_host::ids
