#include "ecrsim/memory.h"

#include <fstream>
#include <system_error>

#include "ecrcom/codes.h"
#include "ecrcom/whole_file.h"

namespace ecrsim {

using ecrcom::FileResult;

Memory::Memory(const std::filesystem::path& folder)
    : folder_(folder.empty() ? std::filesystem::current_path() : std::filesystem::absolute(folder)) {
  std::filesystem::create_directories(folder_);
}

bool Memory::has(std::string_view name) const {
  std::error_code error;
  return std::filesystem::exists(folder_ / name, error);
}

std::int16_t Memory::read(std::string_view name, std::vector<std::uint8_t>& byte) const {
  switch (ecrcom::readFile(folder_ / name, byte)) {
    case FileResult::Done:
      return ecrcom::kDone;
    case FileResult::Missing:
      return ecrcom::kUnknownFile;
    case FileResult::TooLarge:
      return ecrcom::kFileTooLarge;
    case FileResult::Error:
      break;
  }
  return ecrcom::kTillMemory;
}

// Not forced to the disk: what dies with this process is a simulation.
std::int16_t Memory::write(std::string_view name, ecrcom::Bytes byte) const {
  const FileResult outcome = ecrcom::replaceFile(folder_ / name, byte, false);
  return outcome == FileResult::Done ? ecrcom::kDone : ecrcom::kTillMemory;
}

std::int16_t Memory::clear(std::string_view name, std::size_t byte) const {
  return write(name, std::vector<std::uint8_t>(byte));
}

bool Memory::note(std::string_view name, std::string_view text) const {
  std::ofstream output(folder_ / name, std::ios::app | std::ios::binary);
  output << text << std::flush;
  return output.good();
}

}  // namespace ecrsim
