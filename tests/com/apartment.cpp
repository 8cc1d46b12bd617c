// The apartment that all tests live in.
#include <gtest/gtest.h>
#include <ole2.h>

namespace {

struct Apartment : testing::Environment {
  void SetUp() override { ASSERT_EQ(S_OK, OleInitialize(nullptr)); }
  void TearDown() override { OleUninitialize(); }
};

[[maybe_unused]] const auto* const kApartment = testing::AddGlobalTestEnvironment(new Apartment);

}  // namespace
