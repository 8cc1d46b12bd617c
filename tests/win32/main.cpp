// Runs the tests on a thread with COM, as hosts' threads are.
#include <gtest/gtest.h>
#include <ole2.h>

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  if (FAILED(OleInitialize(nullptr))) return 1;
  const int result = RUN_ALL_TESTS();
  OleUninitialize();
  return result;
}
