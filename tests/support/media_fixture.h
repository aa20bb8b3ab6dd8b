// A reader of tags over a real file whose calls may be made to fail.
#pragma once

#include <gtest/gtest.h>

#include "base/failure.h"
#include "tests/support/faulty_files.h"
#include "tests/support/mp3_bytes.h"
#include "tests/support/temporary_folder.h"

namespace tallowbrook {

class MediaTest : public testing::Test {
 protected:
  // The number that a step raises, 0 for none.
  template <typename Step>
  std::uint32_t NumberOf(Step step) {
    try {
      step();
    } catch (const Failure& failure) {
      failure_ = failure;
      return failure.number;
    }
    return 0;
  }

  TemporaryFolder folder_;
  SystemFiles system_;
  FaultyFiles files_{system_};
  Failure failure_;  // the last one
};

}  // namespace tallowbrook
