#include "support/SmallStack.h"
#include <vemo/scenegraph/Ptr.h>

#include <gtest/gtest.h>

namespace vemo {

namespace {

/// Counts its kind, and may hold the next of a chain.
class Link : public lum::Object {
 public:
  Link() { ++count; }
  lum::Ptr<Link> next;
  static inline int count = 0;

 protected:
  ~Link() override { --count; }
};

class Other : public lum::Object {};

TEST(PtrTest, AcquiresTheNewObjectBeforeItReleasesTheOld) {
  lum::Ptr<Link> head(new Link);
  head->next = new Link;
  head = std::move(head->next);
  EXPECT_EQ(Link::count, 1);
  head->next = new Link;
  head = head->next;
  EXPECT_EQ(Link::count, 1);
  lum::Ptr<Link>& same = head;
  head = same;
  head = std::move(same);
  head = head.get();
  ASSERT_EQ(Link::count, 1);
  const lum::Ptr<Link> second(head);
  head = nullptr;
  EXPECT_EQ(Link::count, 1);
}

TEST(PtrTest, EveryAccessIsChecked) {
  const lum::Ptr<Link> empty;
  const lum::Ptr<Link> wrong(new Other);
  EXPECT_FALSE(empty);
  EXPECT_FALSE(wrong);
  for (const auto* pointer : {&empty, &wrong}) {
    try {
      (*pointer)->next = nullptr;
      FAIL() << "no exception";
    } catch (const NonRecoverableError& error) {
      EXPECT_EQ(error.getMessage(), "Uninitialized object or unexpected object type");
      EXPECT_EQ(error.getProperties().get("expression"), "res");
      EXPECT_EQ(error.getProperties().get("file"), "include/vemo/scenegraph/Ptr.h");
    }
  }
}

TEST(PtrTest, ALongChainIsTornDownOnASmallStack) {
  lum::Ptr<Link> head(new Link);
  Link* last = head.get();
  for (int i = 0; i < 1000000; ++i) {
    last->next = new Link;
    last = static_cast<Link*>(last->next.getObject());
  }
  runOnSmallStack([&] { head = nullptr; });
  EXPECT_EQ(Link::count, 0);
}

}  // namespace

}  // namespace vemo
