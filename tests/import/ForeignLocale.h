#pragma once

#include <locale>
#include <string>

namespace vemo {

/// During its lifetime, the process has a locale that writes 1234.5 as 1.234,5.
class ForeignLocale {
 public:
  ForeignLocale() : _before(std::locale::global(std::locale(std::locale::classic(), new Comma))) {}
  ~ForeignLocale() { std::locale::global(_before); }
  ForeignLocale(const ForeignLocale&) = delete;
  ForeignLocale& operator=(const ForeignLocale&) = delete;

 private:
  struct Comma : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
  };

  std::locale _before;
};

}  // namespace vemo
