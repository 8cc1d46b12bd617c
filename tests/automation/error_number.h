// What a failing call tells.
#pragma once

#include <gtest/gtest.h>

#include "support/automation/error.h"

namespace vmgv {

// The number of the error that a call throws; 0 where it throws none.
int errorNumber(auto&& call) {
  try {
    call();
  } catch (const Error& error) {
    EXPECT_STRNE(error.description(), "");
    return error.number();
  }
  return 0;
}

}  // namespace vmgv
