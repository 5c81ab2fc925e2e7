#include "win/message_timer.h"

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>

namespace tavrin::win {
namespace {

// Pumps this thread's messages until `done` or the time is up.
template <class Done>
void PumpUntil(Done done, ULONGLONG milliseconds = 2000) {
  const ULONGLONG end = ::GetTickCount64() + milliseconds;
  while (!done() && ::GetTickCount64() < end) {
    MSG message;
    while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) ::DispatchMessageW(&message);
    ::Sleep(1);
  }
}

TEST(MessageTimerTest, TicksOnThisThreadUntilDestroyed) {
  int ticks = 0;
  const DWORD thread = ::GetCurrentThreadId();
  bool same_thread = true;
  auto timer = std::make_unique<MessageTimer>(10, [&] {
    ++ticks;
    same_thread = same_thread && ::GetCurrentThreadId() == thread;
  });
  PumpUntil([&] { return ticks >= 3; });
  EXPECT_GE(ticks, 3);
  EXPECT_TRUE(same_thread);
  timer.reset();
  const int at_end = ticks;
  PumpUntil([] { return false; }, 100);
  EXPECT_EQ(ticks, at_end);
}

TEST(MessageTimerTest, TwoTimersAndAThrowingTick) {
  int first = 0;
  int second = 0;
  {
    MessageTimer a(10, [&] {
      ++first;
      throw std::runtime_error("tick failed");
    });
    MessageTimer b(10, [&] { ++second; });
    PumpUntil([&] { return first >= 2 && second >= 2; });
  }
  EXPECT_GE(first, 2);  // a throwing tick keeps ticking
  EXPECT_GE(second, 2);
  // Made again after both went: the class was unregistered and comes back.
  int again = 0;
  MessageTimer c(10, [&] { ++again; });
  PumpUntil([&] { return again >= 1; });
  EXPECT_GE(again, 1);
}

}  // namespace
}  // namespace tavrin::win
