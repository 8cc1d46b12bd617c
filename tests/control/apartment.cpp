// The apartment that all tests live in. At the end nothing of the servers may be left.
#include <gtest/gtest.h>

#include "tests/control/libraries.h"

namespace vmgv::test {
namespace {

struct Apartment : testing::Environment {
  void SetUp() override { ASSERT_EQ(S_OK, OleInitialize(nullptr)); }
  void TearDown() override {
    EXPECT_EQ(S_OK, controlLibrary().canUnload());
    OleUninitialize();
  }
};

[[maybe_unused]] const auto* const kApartment = testing::AddGlobalTestEnvironment(new Apartment);

}  // namespace
}  // namespace vmgv::test
