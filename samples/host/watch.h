// Every window of the host is given to Watch: it gets a name, its messages go to the log, it obeys
// SAMPLE_HOST_MISBEHAVE, and another program finds it by its name (MSG_HA_GetWindoHWND).
#pragma once

#include "misbehaviour.h"

#include <string>
#include <vector>
#include <windows.h>

namespace sample_host {

// `name` is unique in the host, for instance "Frame" or "Settings.1001", at most 39 bytes.
void Watch(HWND window, const std::string& name);

// Watches all descendants of a watched window that are not watched yet: a control with identifier 1001
// below "Settings" becomes "Settings.1001"; one without an identifier of its own, or a second one with
// it, becomes "Settings.#1" and so on.
void WatchBelow(HWND window);

// The name of a watched window, otherwise its class name.
std::string NameOf(HWND window);

// The control identifier of a child window, 0 of any other.
int ControlIdOf(HWND window);

// The window of that name (letter case does not matter), null if none.
HWND FindWatched(const std::string& name);

// What a window with a certain control identifier shall do from the moment on when it is watched.
void MisbehaveWhenWatched(std::vector<MisbehaviourOrder> orders);

// Records the messages that this thread takes off its queue, as long as the object lives.
class PostedMessageWatch {
public:
    PostedMessageWatch();
    ~PostedMessageWatch();
    PostedMessageWatch(const PostedMessageWatch&) = delete;
    PostedMessageWatch& operator=(const PostedMessageWatch&) = delete;

private:
    HHOOK m_hook;
};

} // namespace sample_host
