#include "platform/termination.h"

#include <csignal>

#ifndef _WIN32
#include <unistd.h>
#endif

namespace tavrel {

int HeldSignals::depth = 0;
DoomedFile* DoomedFile::first = nullptr;

#ifdef _WIN32

void deleteDoomedFilesOnSignals() {}
HeldSignals::HeldSignals() = default;
HeldSignals::~HeldSignals() = default;
void DoomedFile::deleteAll() {}

#else

namespace {

constexpr int kEndingSignals[] = {SIGHUP,  SIGINT,  SIGQUIT, SIGALRM,   SIGTERM,
                                  SIGUSR1, SIGUSR2, SIGXCPU, SIGVTALRM, SIGPROF};

sigset_t endingSignals() {
  sigset_t signals;
  sigemptyset(&signals);
  for (const int signal : kEndingSignals) {
    sigaddset(&signals, signal);
  }
  return signals;
}

/// What was blocked before signals were held.
sigset_t& maskBefore() {
  static sigset_t mask;
  return mask;
}

extern "C" void deleteFilesAndEnd(int signal) {
  DoomedFile::deleteAll();
  raise(signal);  // ends the program as without this handler, which has been reset
}

}  // namespace

void deleteDoomedFilesOnSignals() {
  struct sigaction action {};
  action.sa_handler = deleteFilesAndEnd;
  action.sa_mask = endingSignals();
  action.sa_flags = static_cast<int>(SA_RESETHAND);
  for (const int signal : kEndingSignals) {
    struct sigaction old {};
    if (sigaction(signal, nullptr, &old) == 0 && old.sa_handler == SIG_DFL) {
      sigaction(signal, &action, nullptr);
    }
  }
}

HeldSignals::HeldSignals() {
  if (depth++ == 0) {
    const sigset_t signals = endingSignals();
    sigprocmask(SIG_BLOCK, &signals, &maskBefore());
  }
}

HeldSignals::~HeldSignals() {
  if (--depth == 0) {
    sigprocmask(SIG_SETMASK, &maskBefore(), nullptr);
  }
}

void DoomedFile::deleteAll() {
  for (const DoomedFile* file = first; file != nullptr; file = file->next_) {
    unlink(file->path_);
  }
}

#endif

void DoomedFile::doom(const char* path) {
  const HeldSignals held;
  path_ = path;
  next_ = first;
  if (next_ != nullptr) {
    next_->previous_ = this;
  }
  first = this;
}

void DoomedFile::spare() {
  if (path_ == nullptr) {
    return;
  }
  const HeldSignals held;
  (previous_ != nullptr ? previous_->next_ : first) = next_;
  if (next_ != nullptr) {
    next_->previous_ = previous_;
  }
  path_ = nullptr;
  next_ = previous_ = nullptr;
}

}  // namespace tavrel
