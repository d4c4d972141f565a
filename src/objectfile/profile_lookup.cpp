#include "objectfile/profile_lookup.h"

#include <string_view>

#include "objectfile/profile_service.h"
#include "objectfile/source_snapshot.h"
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
                         const SourceSnapshot& source) {
  std::string result;
  reportAndLeave(
      [&] {
        ProfileString answer = GetPrivateProfileString(section, key, kNotFound, kValueBufferSize, source);
        answer.text.resize(answer.count);
        if (answer.text != kNotFound) result = std::move(answer.text);
      },
      [&](const RuntimeFailure& failure) {
        result.clear();
        MsgBox(platform, getIniStringErrorMessage(failure));
      });
  return result;
}

std::string GetINIString(Platform& platform, const std::string& section, const std::string& key,
                         const std::string& path) {
  return GetINIString(platform, section, key, SourceSnapshot(path));
}

ProfileKeyScan iniStringScan(std::string_view section, std::string_view key) {
  return ProfileKeyScan(section, key, kValueBufferSize - 1);
}

std::string iniStringOf(const ProfileKeyScan& scan) {
  std::optional<std::string> value = scan.value();
  return value && *value != kNotFound ? std::move(*value) : std::string();
}

void FlushProfileCache(SourceSnapshot& source) {
  source = SourceSnapshot(source.path());
}

}  // namespace korvane
