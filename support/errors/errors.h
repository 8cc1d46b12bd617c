// The three ways to meet a failing late-bound call. A routine names the one that it uses.
#pragma once

#include <optional>
#include <string_view>
#include <utility>

#include "support/automation/error.h"
#include "support/forms/window_port.h"

namespace vmgv {

// For an error without a description. Kept for hosts that show errors of their own; nothing here shows it.
inline constexpr std::string_view kUnknownError = "An unknown error has occurred!";

// 1. Ignore: the statement is skipped when it fails and the next one runs. One call for each statement.
template <class Statement>
void skipping(Statement&& statement) {
  try {
    std::forward<Statement>(statement)();
  } catch (const Error&) {  // deliberate: see above
  }
}

// 2. Report: an error ends the procedure with its description in a critical message box.
template <class Procedure>
void reporting(WindowPort& window, Procedure&& procedure) {
  try {
    std::forward<Procedure>(procedure)();
  } catch (const Error& error) {
    window.messageBox(error.description(), MessageStyle::Critical, {});
  }
}

// 3. Own words: the error, for the caller to answer in texts of its own; nothing where all went well.
template <class Step>
std::optional<Error> attempt(Step&& step) {
  try {
    std::forward<Step>(step)();
    return {};
  } catch (const Error& error) {
    return error;
  }
}

}  // namespace vmgv
