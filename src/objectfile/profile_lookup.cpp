#include "objectfile/profile_lookup.h"

#include <string_view>

#include "objectfile/profile_service.h"
#include "runtime/failure_handling.h"
#include "runtime/message_box.h"
#include "runtime/message_frames.h"

namespace korvane {
namespace {

// What the service answers when there is no value. A key whose value is
// exactly this text therefore reads as missing too.
constexpr std::string_view kNotFound = "NotFound";
// A buffer of 256 of which the service is told 255, so at most 254
// characters of a value come back.
constexpr std::size_t kValueBufferSize = 255;

}  // namespace

std::string GetINIString(Platform& platform, const std::string& section, const std::string& key,
                         const std::string& path) {
  std::string result;
  runGuarded(
      [&] {
        ProfileString answer = GetPrivateProfileString(section, key, kNotFound, kValueBufferSize, path);
        answer.text.resize(answer.count);
        if (answer.text != kNotFound) result = std::move(answer.text);
      },
      [&](const RuntimeFailure& failure) {
        result.clear();
        MsgBox(platform, getIniStringErrorMessage(failure));
      });
  return result;
}

// The service reads the file anew for every lookup and keeps nothing between
// two of them, so there is nothing to flush. The call stays so that the
// loading workflows keep their order should a caching service take its place.
void FlushProfileCache(const std::string&) {}

}  // namespace korvane
