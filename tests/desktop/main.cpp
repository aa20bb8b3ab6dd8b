// Tests of the window run with real widgets, on the off-screen platform unless told otherwise.
#include <gtest/gtest.h>

#include "desktop/application.h"

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  testing::InitGoogleTest(&argc, argv);
  tallowbrook::Application application(argc, argv);
  return RUN_ALL_TESTS();
}
