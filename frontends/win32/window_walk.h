// Walks over windows; a visitor that returns false ends the walk.
#pragma once

#include <windows.h>

namespace vmgv {
namespace detail {

template <class Visit>
BOOL CALLBACK visitWindow(HWND window, LPARAM visit) {
  return (*reinterpret_cast<Visit*>(visit))(window);
}

}  // namespace detail

// The top-level windows of this thread.
template <class Visit>
void eachThreadWindow(Visit visit) {
  EnumThreadWindows(GetCurrentThreadId(), detail::visitWindow<Visit>, reinterpret_cast<LPARAM>(&visit));
}

// Children and their children.
template <class Visit>
void eachChild(HWND window, Visit visit) {
  EnumChildWindows(window, detail::visitWindow<Visit>, reinterpret_cast<LPARAM>(&visit));
}

}  // namespace vmgv
