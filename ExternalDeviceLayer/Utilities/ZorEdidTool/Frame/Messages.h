// What the library says while it works, its assertion lines above all. The library writes to standard output, where the
// command's results go; here it is kept apart for each thread.

#pragma once

#include <string>

// From now on, messages are kept, or dropped with bKeep false.
void CatchMessages(bool bKeep);

// What the present thread has caught since it was last asked: whole lines.
std::string TakeMessages();
