#include "ForeignLocale.h"
#include "SceneFixture.h"
#include "vemoview/import/xml/QxString.h"

#include <cmath>
#include <exception>
#include <limits>
#include <locale>
#include <random>
#include <sstream>
#include <type_traits>
#include <utility>

namespace vemo {

namespace {

TEST(QxStringTest, ParsesWholeNumbers) {
  const struct {
    const char* text;
    int radix;
    int value;
  } CASES[] = {
      {"ff", 16, 255},        {"FF", 16, 255},
      {"z", 36, 35},          {"12", 10, 12},
      {"-12", 10, 12},        {"", 10, 0},
      {"-", 10, 0},           {"4294967297", 10, 1},
      {"4294967295", 10, -1}, {"2147483648", 10, std::numeric_limits<int>::min()},
      {"101", 2, 5},
  };
  for (const auto& example : CASES) {
    EXPECT_EQ(QxString::parseInt(example.text, example.radix), example.value) << example.text;
  }
}

TEST(QxStringTest, RefusesWhatIsNoNumber) {
  for (const std::string text :
       {"12a", " 1", "1 ", "+1", "--1", "\xC3\xA9", "1.0", "/", ":", "`", "{", "@", "["}) {
    EXPECT_EQ(failureOf([&] { QxString::parseInt(text, 10); }), "NumberFormatException: " + text + " | ::");
  }
  EXPECT_EQ(failureOf([] { QxString::parseInt("2", 2); }), "NumberFormatException: 2 | ::");
  for (const int radix : {1, 37, -10}) {
    EXPECT_EQ(failureOf([radix] { QxString::parseInt("", radix); }),
              "Exception: QxString::parseInt:  radix out of range | ::");
  }
}

/// Bit for bit, so that -0 and 0 differ.
void expectParsedAsAStreamExtracts(const std::string& text) {
  std::istringstream stream(text);
  stream.imbue(std::locale::classic());
  double expected = 0.0;
  stream >> expected;
  const double actual = QxString::parseDouble(text);
  EXPECT_EQ(actual, expected) << '"' << text << '"';
  EXPECT_EQ(std::signbit(actual), std::signbit(expected)) << '"' << text << '"';
}

TEST(QxStringTest, ParsesFloatingNumbersAsAStreamExtracts) {
  for (const char* text : {"1.5", "  \t\n2 3", "+4", "-0", ".5", "5.", "1e3x", "", "abc", "1e", "0x10", "1,5",
                           "1e400", "-1e400", "inf", "nan", "1e-400", "-", "4.9e-324"}) {
    expectParsedAsAStreamExtracts(text);
  }
  EXPECT_EQ(QxString::parseDouble(std::string("1\0002", 3)), 1);
  std::mt19937_64 random(7);
  const std::string alphabet = "0123456789012345678901234567890123456789..eE+- xinfa,\t";
  for (int i = 0; i < 30000; ++i) {
    std::string text(random() % 12, ' ');
    for (char& character : text) {
      character = alphabet[random() % alphabet.size()];
    }
    expectParsedAsAStreamExtracts(text);
    std::ostringstream number;
    number.precision(static_cast<int>(1 + random() % 20));
    number << std::ldexp(static_cast<double>(random()), static_cast<int>(random() % 2300) - 1200);
    expectParsedAsAStreamExtracts(number.str());
  }
}

TEST(QxStringTest, IgnoresTheLocaleOfTheProcess) {
  const ForeignLocale foreign;
  EXPECT_EQ(QxString::parseDouble("1.25"), 1.25);
  EXPECT_EQ(QxString::parseDouble(" 1.25"), 1.25);
}

TEST(ColorTest, ParsesEightDigits) {
  const std::pair<const char*, Color> CASES[] = {
      {"FF800040", {255, 128, 0, 64}},
      {"ff800040zzz", {255, 128, 0, 64}},
      {"-F-00000", {15, 0, 0, 0}},
  };
  for (const auto& [text, color] : CASES) {
    EXPECT_EQ(Color::parse(text), color) << text;
  }
  EXPECT_EQ(Color::parse("FF003300").getRGB(), (Vector3{1.0, 0.0, 0.2}));
  EXPECT_EQ(failureOf([] { Color::parse("00GG0000"); }), "NumberFormatException: GG | ::");
}

TEST(QxElementTest, RefusesShortAndAbsentColors) {
  for (const char* xml : {"<scene c='FF8000'/>", "<scene/>"}) {
    try {
      elementOf(xml)->getColor("c");
      ADD_FAILURE() << xml;
    } catch (const InternalError& error) {
      EXPECT_EQ(error.getMessage(), "Can't extract color from such a short string");
      EXPECT_EQ(error.getExpression(), "colorStr.length() >= 8");
      EXPECT_EQ(error.getFile(), "visualization/src/vemoview/import/QxElement");
      EXPECT_EQ(error.getLine(), 22);
    }
  }
}

TEST(QxElementTest, GivesTypedAttributes) {
  const auto element = elementOf("<a yes='true' Yes='True' one='1' text='t'/>");
  EXPECT_TRUE(element->getBool("yes"));
  EXPECT_FALSE(element->getBool("Yes"));
  EXPECT_FALSE(element->getBool("one"));
  EXPECT_FALSE(element->getBool("YES"));
  EXPECT_EQ(element->getInt("one", 7), 1);
  EXPECT_EQ(element->getInt("absent"), 0);
  EXPECT_EQ(element->getInt("absent", 7), 7);
  EXPECT_THROW(element->getInt("text", 7), NumberFormatException);
  EXPECT_EQ(element->getDouble("one"), 1.0);
  EXPECT_EQ(element->getDouble("absent"), 0.0);
  EXPECT_EQ(*element->getString("text"), "t");
  EXPECT_EQ(element->getString("absent"), nullptr);
}

TEST(QxElementTest, ReadsVectorsFromTheFirstChildOfTheName) {
  const auto element = elementOf("<a><Origin x='9'/><origin y='2.5'/><origin y='3'/></a>");
  Vector3 out{1, 2, 3};
  EXPECT_FALSE(element->getVector3("normal", out));
  EXPECT_EQ(out, (Vector3{1, 2, 3}));
  EXPECT_TRUE(element->getVector3("origin", out));
  EXPECT_EQ(out, (Vector3{0, 2.5, 0}));
}

TEST(QxElementTest, DestroysADeepTree) {
  QxElement root("a");
  QxElement* innermost = &root;
  for (int i = 0; i < 1000000; ++i) {
    innermost = &innermost->addChild(std::make_unique<QxElement>("a"));
  }
}

TEST(ExceptionTest, KeepsTheInnermostPlace) {
  IOException exception("message");
  EXPECT_EQ(exception.getPlace(), "");
  exception.setEntry("p.bin");
  EXPECT_EQ(exception.getPlace(), "entry 'p.bin'");
  exception.setItemPath("scene/wing");
  exception.setLine(3);
  exception.setEntry("other");
  exception.setItemPath("scene");
  exception.setLine(1);
  EXPECT_EQ(exception.getPlace(), "item scene/wing, line 3 of the scene description, entry 'p.bin'");
  EXPECT_EQ(exception.getMessage(), "message");
  static_assert(!std::is_base_of_v<std::exception, Exception> && std::is_polymorphic_v<Exception>);
}

}  // namespace

}  // namespace vemo
