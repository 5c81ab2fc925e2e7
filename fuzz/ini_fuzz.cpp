// The INI reader and writer over an arbitrary file: the model loads every
// section and item, and writing one section (chosen by the input) leaves the
// reading of every other section as it was.
#include <cstdint>
#include <map>
#include <string>

#include "base/text.h"
#include "base/utf8.h"
#include "fuzz/fuzz_support.h"
#include "platform/portable_profile_file.h"
#include "settings/ini_file.h"
#include "tests/support/memory_file_system.h"

namespace {

using namespace tavrin;

constexpr std::string_view kFolder = "/addin";
constexpr std::string_view kFile = "/addin/test.ini";

// The NUL-separated strings of a profile answer.
std::vector<std::string> Strings(const std::string& answer) {
  std::vector<std::string> strings;
  std::size_t start = 0;
  for (std::size_t end; (end = answer.find('\0', start)) != std::string::npos; start = end + 1)
    if (end > start) strings.emplace_back(answer, start, end - start);
  if (start < answer.size()) strings.emplace_back(answer, start);
  return strings;
}

std::string ReadSection(platform::ProfileFile& profiles, std::string_view section) {
  return settings::ReadWholeProfileBuffer([&](std::size_t size) {
    return profiles.ReadSection(kFile, section, size);
  });
}

// Every section by upper-cased name, the first of duplicates as the reader
// takes it.
std::map<std::string, std::string> ReadAll(platform::ProfileFile& profiles) {
  std::map<std::string, std::string> sections;
  const std::string names = settings::ReadWholeProfileBuffer(
      [&](std::size_t size) { return profiles.SectionNames(kFile, size); });
  for (const std::string& name : Strings(names))
    sections.try_emplace(ToUpperAscii(name), ReadSection(profiles, name));
  return sections;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const fuzz::Input input = fuzz::TakeSelector(data, size);
  testing::MemoryFileSystem files;
  files.AddFile(kFile, input.rest);
  platform::PortableProfileFile profiles(files);

  {
    settings::C4_IniFile ini(profiles, files, std::string(kFolder));
    ini.SetName("test.ini");
    for (int position = 1; position <= ini.Count(); ++position) ini.Item(position)->Count();
  }

  const auto before = ReadAll(profiles);
  if (before.empty()) return 0;
  auto chosen = before.begin();
  std::advance(chosen, input.selector % before.size());
  const std::string name = chosen->first;
  if (!profiles.WriteSection(kFile, name, "Key=Value\r\n;note")) return 0;

  // A Windows-1252 file whose only bytes that are not UTF-8 were in the
  // section written away is read as UTF-8 from then on: a known limit of
  // telling the two apart, written down with the settings.
  if (!utf8::IsValid(input.rest) && utf8::IsValid(files.files().at(std::string(kFile))))
    return 0;
  const auto after = ReadAll(profiles);
  for (const auto& [section, content] : before) {
    if (section == name) continue;
    const auto found = after.find(section);
    fuzz::Check(found != after.end() && found->second == content,
                "writing one section leaves the others as they read");
  }
  return 0;
}
