#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

namespace vemo {

/// During its lifetime, the tests run as a user whom permissions concern, even if root
/// has started them.
class AsOrdinaryUser {
 public:
  static constexpr uid_t NOBODY = 65534;

  AsOrdinaryUser() { EXPECT_TRUE(!_isRoot || seteuid(NOBODY) == 0); }
  ~AsOrdinaryUser() { EXPECT_TRUE(!_isRoot || seteuid(0) == 0); }
  AsOrdinaryUser(const AsOrdinaryUser&) = delete;
  AsOrdinaryUser& operator=(const AsOrdinaryUser&) = delete;

 private:
  bool _isRoot = getuid() == 0;
};

}  // namespace vemo
