// How the sample host is told to misbehave: by the registered message below, sent or posted to the
// window that shall misbehave, or by --misbehave NAME[=NUMBER][@CONTROL ID] (see command_line.h).
#pragma once

namespace sample_host {

// wParam = a Misbehaviour, lParam = its number. Answers 1, 0 for an unknown one.
inline constexpr char kMisbehaveMessage[] = "SAMPLE_HOST_MISBEHAVE";

enum class Misbehaviour : unsigned {
    Busy = 1,       // "busy": blocks the GUI thread at once for number ms
    LateDialog = 2, // "late-dialog": opens the modal dialog "Late" after number ms
    DestroyOnCommand =
        3,              // "destroy-on-command": this window goes when it or an ancestor next gets WM_COMMAND
    DestroyOnClick = 4, // "destroy-on-click": this window goes when a mouse button is next pressed in it
    DestroyOnSync = 5,  // "destroy-on-sync": this window goes when any window next gets MSG_GH_SYNC
    DestroyLater = 6,   // "destroy-later": this window goes after number ms
    Disable = 7,        // "disable": this window is disabled now and enabled after number ms
    NeverIdle = 8,      // "never-idle": this window's thread keeps posting itself messages for number ms
    CrashOnMessage = 9, // "crash-on-message": the process ends, with exit code 3, in the middle of the
                        // next message with that number to this window; number 0: at once
    CreateLater = 10,   // "create-later": this window gets a visible child, an edit control with id
                        // kLateEdit, after number ms
    // In the middle of a message: numbers by AtMessage().
    HoldAtMessage = 11,    // "hold-at-message": the GUI thread says so and waits until it is released
    DestroyAtMessage = 12, // "destroy-at-message": this window goes
    ThrowAtMessage = 13,   // "throw-at-message": an exception leaves the window procedure
    PumpInMessages = 14,   // "pump-in-messages": every request of this window or of one below it takes a
                           // message loop of number ms before it is answered; 0 ends that
    FullQueue = 15,        // "full-queue": fills the thread's queue, then blocks the GUI thread for number ms
    FloatingBar = 16,    // "floating-bar": opens a floating tool bar with the window class and the inside of
                         // a popup of the host, which no key closes
    StubbornPopups = 17, // "stubborn-popups": popups of the host ignore keys for number ms
    HidePopups = 18,     // "hide-popups": popups that close for number ms are hidden, not destroyed
    // How this window answers the requests of ghosthand/host_contract.h from now on.
    AnswerProperly = 20,     // "answer-properly"
    AnswerNothing = 21,      // "answer-nothing": 0, and no text
    Answer165 = 22,          // "answer-165": to everything
    AnswerGarbage = 23,      // "answer-garbage": kGarbageAnswer to everything
    AnswerByPointer = 24,    // "answer-by-pointer": with a pointer to a text of the host's own
    AnswerTooLong = 25,      // "answer-too-long": the same with a text of 3000 bytes
    AnswerUnterminated = 26, // "answer-unterminated": fills the buffer to its last byte
    AnswerUnreadable = 27,   // "answer-unreadable": with a pointer to memory that nobody may read
    AnswerWithoutEnd = 28,   // "answer-without-end": with a pointer to 100 characters without a terminator,
                             // behind which nothing can be read
    AnswerHuge = 29,         // "answer-huge": 0x7FFFFFFF to these and to the requests that controls of the
                             // system take, the length of a text included
};

// The `ordinal`-th message (from 1) of that number from now on that the log of any window records; message
// 0: of any number.
constexpr int AtMessage(unsigned message, unsigned ordinal) {
    return static_cast<int>(ordinal << 16 | message);
}

// Events of a host with that process id, made by whoever gave the order: the first is set when its message
// has come; a host that holds goes on, within a minute, when the second is set.
inline constexpr char kReachedEvent[] = "Local\\SampleHostReached-";
inline constexpr char kReleaseEvent[] = "Local\\SampleHostRelease-";

// wParam = a Question.
inline constexpr char kAskMessage[] = "SAMPLE_HOST_ASK";

enum class Question : unsigned {
    HeldKeys = 1, // of Shift, Control, Alt and the left, right and middle mouse button those that the GUI
                  // thread takes for held: a bit each, Shift the lowest
    AccessViolations = 2, // how many there were in this process, handled ones too
    LastViolation = 3,    // address of the instruction of the last one
};
// No count, no index, no item; its low 16 bits are an atom that does not exist.
inline constexpr long long kGarbageAnswer = 0x12345FEDC;
inline constexpr int kLateEdit = 1099;
inline constexpr int kCrashExitCode = 3;

} // namespace sample_host
