#include "platform/std_file_system.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <algorithm>
#include <iterator>
#include <random>
#include <system_error>

namespace tavrin::platform {
namespace fs = std::filesystem;
namespace {

fs::path ToPath(std::string_view utf8) {
  return fs::path(std::u8string(utf8.begin(), utf8.end()));
}

std::string Quoted(std::string_view path) { return "'" + std::string(path) + "'"; }

std::string Describe(const std::error_code& error) {
  std::string text = error.message();
  if (!text.empty()) text[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(text[0])));
  return text;
}

std::string TemporarySibling(const fs::path& target) {
  std::random_device random;
  return target.filename().string() + ".tavrin-" + std::to_string(random() % 1000000) + ".tmp";
}

}  // namespace

Result<std::string> StdFileSystem::ReadFile(std::string_view path) {
  const fs::path file = ToPath(path);
  std::error_code error;
  const auto status = fs::status(file, error);
  if (error || !fs::exists(status))
    return Error{"cannot read " + Quoted(path) + ": no such file"};
  if (fs::is_directory(status))
    return Error{"cannot read " + Quoted(path) + ": it is a folder"};
  std::ifstream in(file, std::ios::binary);
  if (!in) return Error{"cannot read " + Quoted(path) + ": " + std::strerror(errno)};
  // One block read of the size the file has, then whatever it grew by.
  std::string bytes;
  const auto size = fs::file_size(file, error);
  if (!error) {
    bytes.resize(static_cast<std::size_t>(size));
    in.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    bytes.resize(static_cast<std::size_t>(in.gcount()));
    in.clear(in.rdstate() & ~std::ios::failbit & ~std::ios::eofbit);
  }
  bytes.append(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
  if (in.bad()) return Error{"cannot read " + Quoted(path) + ": read error"};
  return bytes;
}

Status StdFileSystem::WriteFile(std::string_view path, std::string_view bytes) {
  const fs::path target = ToPath(path);
  std::error_code error;
  const auto status = fs::status(target, error);
  if (fs::is_directory(status))
    return Error{"cannot write " + Quoted(path) + ": it is a folder"};
  const bool exists = fs::exists(status);
  // The rename below would replace a read-only file; refuse as an editor does.
  if (exists && (status.permissions() & fs::perms::owner_write) == fs::perms::none)
    return Error{"cannot write " + Quoted(path) + ": the file is read-only"};

  const fs::path folder = target.has_parent_path() ? target.parent_path() : fs::path(".");
  const fs::path temporary = folder / TemporarySibling(target);
  {
    std::ofstream out(temporary, std::ios::binary | std::ios::trunc);
    if (!out) return Error{"cannot write " + Quoted(path) + ": " + std::strerror(errno)};
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    out.flush();
    if (!out) {
      out.close();
      fs::remove(temporary, error);
      return Error{"cannot write " + Quoted(path) + ": the disk may be full"};
    }
  }
  if (exists) fs::permissions(temporary, status.permissions(), error);
  fs::rename(temporary, target, error);
  if (error) {
    std::error_code ignored;
    fs::remove(temporary, ignored);
    return Error{"cannot write " + Quoted(path) + ": " + Describe(error)};
  }
  return {};
}

bool StdFileSystem::FileExists(std::string_view path) {
  std::error_code error;
  return fs::is_regular_file(ToPath(path), error);
}

std::optional<std::string> StdFileSystem::ChangeStamp(std::string_view path) {
  std::error_code error;
  const fs::path file = ToPath(path);
  const auto size = fs::file_size(file, error);
  if (error) return std::nullopt;
  const auto written = fs::last_write_time(file, error);
  if (error) return std::nullopt;
  return std::to_string(size) + ":" + std::to_string(written.time_since_epoch().count());
}

bool StdFileSystem::FolderExists(std::string_view path) {
  std::error_code error;
  return fs::is_directory(ToPath(path), error);
}

Status StdFileSystem::CreateFolders(std::string_view path) {
  std::error_code error;
  fs::create_directories(ToPath(path), error);
  if (error) return Error{"cannot create folder " + Quoted(path) + ": " + Describe(error)};
  return {};
}

Result<std::vector<FolderEntry>> StdFileSystem::ListFolder(std::string_view path) {
  std::error_code error;
  fs::directory_iterator it(ToPath(path), error);
  if (error) return Error{"cannot list " + Quoted(path) + ": " + Describe(error)};
  std::vector<FolderEntry> entries;
  for (; it != fs::directory_iterator(); it.increment(error)) {
    if (error) return Error{"cannot list " + Quoted(path) + ": " + Describe(error)};
    const std::u8string name = it->path().filename().u8string();
    std::error_code kind_error;
    entries.push_back({std::string(name.begin(), name.end()), it->is_directory(kind_error)});
  }
  std::sort(entries.begin(), entries.end(), [](const FolderEntry& a, const FolderEntry& b) {
    return std::lexicographical_compare(
        a.name.begin(), a.name.end(), b.name.begin(), b.name.end(), [](char x, char y) {
          return std::tolower(static_cast<unsigned char>(x)) <
                 std::tolower(static_cast<unsigned char>(y));
        });
  });
  return entries;
}

Status StdFileSystem::MoveFile(std::string_view from, std::string_view to) {
  std::error_code error;
  if (fs::exists(ToPath(to), error))
    return Error{"cannot move " + Quoted(from) + " to " + Quoted(to) + ": the target exists"};
  fs::rename(ToPath(from), ToPath(to), error);
  if (error) return Error{"cannot move " + Quoted(from) + ": " + Describe(error)};
  return {};
}

Status StdFileSystem::DeleteFile(std::string_view path) {
  std::error_code error;
  if (!fs::is_regular_file(ToPath(path), error))
    return Error{"cannot delete " + Quoted(path) + ": no such file"};
  fs::remove(ToPath(path), error);
  if (error) return Error{"cannot delete " + Quoted(path) + ": " + Describe(error)};
  return {};
}

}  // namespace tavrin::platform
