// What the library says while it works. It writes to standard output, where the command's results go; here it is kept
// apart for each thread. Its assertion lines name places in its sources and mean nothing to a user: they are dropped.
// What is wrong with an image, the command finds and says itself.

#pragma once

#include <string>

// From now on, messages are kept, or dropped with bKeep false.
void CatchMessages(bool bKeep);

// What the present thread has caught since it was last asked: whole lines.
std::string TakeMessages();
