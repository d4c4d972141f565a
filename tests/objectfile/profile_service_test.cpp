#include "objectfile/profile_service.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <csignal>
#include <future>
#include <string>
#include <thread>

#include "support/temp_files.h"

namespace korvane {
namespace {

using namespace std::chrono_literals;
using testing::crlf;
using testing::TempDir;

ProfileString textureMap(const std::string& path, std::size_t size) {
  return GetPrivateProfileString("Material - 0", "TextureMap", "NotFound", size, path);
}

TEST(ProfileService, ValueIsCutToOneLessThanTheSizeAndCounted) {
  TempDir dir;
  std::string path = dir.write("source.kob", crlf({"[Material - 0]", "TextureMap=abcdefg"}));
  ProfileString answer = textureMap(path, 5);
  EXPECT_EQ(answer.text, "abcd");
  EXPECT_EQ(answer.count, 4u);
  EXPECT_EQ(textureMap(path, 8).text, "abcdefg");
  EXPECT_EQ(textureMap(path, 1).count, 0u);
  EXPECT_EQ(textureMap(path, 0).text, "");
}

TEST(ProfileService, DefaultIsCutLikeAValue) {
  TempDir dir;
  ProfileString answer = textureMap(dir.file("absent.kob"), 5);
  EXPECT_EQ(answer.text, "NotF");
  EXPECT_EQ(answer.count, 4u);
  EXPECT_EQ(textureMap(dir.file("absent.kob"), 255).text, "NotFound");
}

TEST(ProfileService, QuotesAreDroppedBeforeTheCut) {
  TempDir dir;
  std::string path = dir.write("source.kob", crlf({"[Material - 0]", "TextureMap='abcdefg'"}));
  EXPECT_EQ(textureMap(path, 5).text, "abcd");
  EXPECT_EQ(textureMap(path, 9).text, "abcdefg");
}

TEST(ProfileService, BlanksLongerThanTheReadBufferAroundKeyAndValueDoNotCount) {
  TempDir dir;
  std::string blanks(200 * 1024, ' ');
  std::string path =
      dir.write("source.kob", crlf({"[Material - 0]" + blanks,
                                    "TextureMap" + blanks + "=" + blanks + "\"a" + blanks + "b\"" + blanks}));
  EXPECT_EQ(textureMap(path, 255).text, "a" + std::string(253, ' '));
  EXPECT_EQ(textureMap(path, 300000).text, "a" + blanks + "b");
}

// A FIFO whose writer sends the bytes and then holds its end open: a lookup
// that wanted to read on to the end of the file would never come back.
class HeldOpenFifo {
 public:
  HeldOpenFifo(std::string path, std::string bytes) : m_path(std::move(path)) {
    std::signal(SIGPIPE, SIG_IGN);
    if (::mkfifo(m_path.c_str(), 0600) != 0) throw std::runtime_error("mkfifo failed");
    m_writer = std::thread([this, bytes = std::move(bytes)] {
      int descriptor = ::open(m_path.c_str(), O_WRONLY);
      // One write of less than a pipe's atomic size: all of it is in the pipe
      // before the reader sees any of it.
      if (::write(descriptor, bytes.data(), bytes.size()) < 0) return;
      while (!m_released) std::this_thread::sleep_for(1ms);
      ::close(descriptor);
    });
  }
  ~HeldOpenFifo() {
    m_released = true;
    // Lets the writer's open return should no reader have come.
    int unblock = ::open(m_path.c_str(), O_RDONLY | O_NONBLOCK);
    m_writer.join();
    if (unblock >= 0) ::close(unblock);
  }
  void release() { m_released = true; }

 private:
  std::string m_path;
  std::atomic<bool> m_released{false};
  std::thread m_writer;
};

std::string lookUpWhileHeldOpen(const std::string& bytes) {
  TempDir dir;
  HeldOpenFifo fifo(dir.file("source.kob"), bytes);
  auto answer = std::async(std::launch::async, [&] { return textureMap(dir.file("source.kob"), 255).text; });
  if (answer.wait_for(10s) == std::future_status::timeout) {
    ADD_FAILURE() << "the lookup went on reading after its answer was known";
    fifo.release();
  }
  return answer.get();
}

TEST(ProfileService, StopsReadingOnceTheKeyIsFound) {
  EXPECT_EQ(lookUpWhileHeldOpen(crlf({"[Material - 0]", "TextureMap=a.tga"})), "a.tga");
}

TEST(ProfileService, StopsReadingOnceTheFirstSectionOfTheNameHasEnded) {
  EXPECT_EQ(lookUpWhileHeldOpen(crlf({"[Material - 0]", "ColorKey=1,2,3", "[Other]"})), "NotFound");
}

}  // namespace
}  // namespace korvane
