#include "platform/profile_file.h"

namespace tavrin::platform {

ProfileBuffer FillProfileBuffer(const std::string& strings, std::size_t buffer_size) {
  ProfileBuffer result;
  result.buffer.assign(buffer_size, '\0');
  if (buffer_size < 2) return result;
  if (strings.size() <= buffer_size - 2) {
    result.buffer.replace(0, strings.size(), strings);
    result.length = strings.size();
  } else {
    // The last string is cut and followed by two NULs.
    result.buffer.replace(0, buffer_size - 2, strings, 0, buffer_size - 2);
    result.length = buffer_size - 2;
  }
  return result;
}

}  // namespace tavrin::platform
