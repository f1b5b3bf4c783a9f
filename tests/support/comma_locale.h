// A host with a decimal comma.
#pragma once

#include <clocale>
#include <locale>
#include <string>

namespace tessara::testing {

// During its lifetime, streams write 1234.5 as 1.234,5. So does printf if the machine has a C locale with a
// decimal comma.
class CommaLocale {
  public:
    CommaLocale() : before_(std::locale()), cBefore_(std::setlocale(LC_ALL, nullptr)) {
        std::locale::global(std::locale(std::locale::classic(), new Punctuation));
        for (const char* name : {"de_DE.UTF-8", "de_DE.utf8", "de_DE", "fr_FR.UTF-8", "fr_FR.utf8"}) {
            if (std::setlocale(LC_ALL, name) != nullptr) break;
        }
    }
    ~CommaLocale() {
        std::locale::global(before_);
        std::setlocale(LC_ALL, cBefore_.c_str());
    }
    CommaLocale(const CommaLocale&) = delete;
    CommaLocale& operator=(const CommaLocale&) = delete;

  private:
    class Punctuation : public std::numpunct<char> {
      protected:
        char do_decimal_point() const override { return ','; }
        char do_thousands_sep() const override { return '.'; }
        std::string do_grouping() const override { return "\3"; }
    };

    std::locale before_;
    std::string cBefore_;
};

}  // namespace tessara::testing
