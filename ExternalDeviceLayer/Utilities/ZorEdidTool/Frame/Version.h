// The version of the command.

#pragma once

// "1.2.3"
const char* GetVersion();
