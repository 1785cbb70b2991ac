#include "platform/termination.h"

#include <csignal>

#include "tests/support/temporary_directory.h"

namespace tavrel::test {

bool isHeld(int signal) {
  sigset_t mask;
  sigprocmask(SIG_BLOCK, nullptr, &mask);
  return sigismember(&mask, signal) == 1;
}

TEST(Termination, SignalsAreHeldUntilTheLastHolderIsGone) {
  for (const int signal : {SIGHUP, SIGINT, SIGTERM, SIGPROF}) {
    SCOPED_TRACE(signal);
    EXPECT_FALSE(isHeld(signal));
    {
      const HeldSignals outer;
      { const HeldSignals inner; }
      EXPECT_TRUE(isHeld(signal));
      EXPECT_FALSE(isHeld(SIGCHLD));
    }
    EXPECT_FALSE(isHeld(signal));
  }
}

TEST(Termination, IgnoredSignalsStayIgnored) {
  const auto isIgnored = [](int signal) {
    struct sigaction action {};
    return sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_IGN;
  };
  const auto before = std::signal(SIGUSR1, SIG_IGN);
  deleteDoomedFilesOnSignals();
  EXPECT_TRUE(isIgnored(SIGUSR1));
  EXPECT_FALSE(isIgnored(SIGUSR2));
  std::signal(SIGUSR1, before);
}

TEST(Termination, DeletesTheFilesThatAreDoomed) {
  const TemporaryDirectory directory;
  const std::string paths[] = {directory.write("0", ""), directory.write("1", ""),
                               directory.write("2", ""), directory.write("3", "")};
  DoomedFile files[4];
  for (std::size_t i = 0; i < 4; ++i) {
    files[i].doom(paths[i].c_str());
  }
  for (const std::size_t spared : {1U, 2U, 3U}) {  // from the middle, then the newest
    files[spared].spare();
  }
  files[3].doom(paths[3].c_str());
  for (int i = 0; i < 2; ++i) {
    files[1].doom(paths[1].c_str());
    files[1].spare();
  }
  DoomedFile::deleteAll();
  for (const auto& [index, isThere] : {std::pair(0, false), {1, true}, {2, true}, {3, false}}) {
    EXPECT_EQ(std::filesystem::exists(paths[index]), isThere) << index;
  }
}

}  // namespace tavrel::test
