// Enters a server's classes and type library in the registry, and takes them out again.
#pragma once

#include "servers/common/server.h"

namespace vmgv {

// For all users of the machine, or for the user alone, who needs no rights for that.
enum class Scope { Machine, User };

// The machine where this process may write there.
Scope writableScope() noexcept;

// All or nothing: what has been entered is taken out again where a later step fails. Throws Error.
void registerServer(const Server& server, Scope scope);

// Takes out what registerServer enters, and nothing else: 32 and 64 bit share the program ids, which stay as
// long as the other width is registered; a newer version's program id stays too. Throws Error.
void unregisterServer(const Server& server, Scope scope);
// Not where the registration leads to another copy of the library: that one's is not ours to take out.
bool isRegistered(const Server& server, Scope scope);

}  // namespace vmgv
