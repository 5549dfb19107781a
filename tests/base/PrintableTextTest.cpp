#include <vemo/base/PrintableText.h>

#include <gtest/gtest.h>

namespace vemo {

namespace {

TEST(PrintableTextTest, HasOneLineInTheDirectionOfItsLetters) {
  EXPECT_EQ(toPrintable("a\nb\r"), "a\nb\uFFFD");
  EXPECT_EQ(toPrintableLine("a\nb"), "a b");
  for (const char* const sign :
       {"\u2028", "\u2029", "\u061C", "\u200E", "\u200F", "\u202A", "\u202E", "\u2066", "\u2069", "\u0085"}) {
    EXPECT_EQ(toPrintable(sign), "\uFFFD");
  }
  EXPECT_EQ(toPrintable("\u2027\u202F\u0628"), "\u2027\u202F\u0628");
}

}  // namespace

}  // namespace vemo
