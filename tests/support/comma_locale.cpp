// With TESSARA_COMMA_LOCALE in the environment all tests of a program run under a locale with a decimal
// comma.
#include "support/comma_locale.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>

namespace tessara::testing {
namespace {

class CommaEnvironment : public ::testing::Environment {
  public:
    void SetUp() override { comma_ = std::make_unique<CommaLocale>(); }
    void TearDown() override { comma_.reset(); }

  private:
    std::unique_ptr<CommaLocale> comma_;
};

[[maybe_unused]] const ::testing::Environment* const g_comma =
    std::getenv("TESSARA_COMMA_LOCALE") != nullptr ? ::testing::AddGlobalTestEnvironment(new CommaEnvironment)
                                                   : nullptr;

}  // namespace
}  // namespace tessara::testing
