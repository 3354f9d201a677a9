// The nine images that a till has to hold for a configuration, computed from the file's bytes alone:
// till_images <configuration> <script> <folder> <class>. Shares nothing with the program but the layout that
// it was written from. A line of the script changes a field: "<family> <record> <offset> text|int|byte
// <value>", records from 0.

#include <array>
#include <cstdint>
#include <fstream>
#include <iostream>
#include <iterator>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace {

struct Family {
  std::string_view name;
  std::size_t start;
  std::size_t record;
  std::size_t count;
};

/// Places in the file, by hand.
constexpr std::array kFamilies{Family{"intestazione", 146, 38, 8},  Family{"cortesia", 450, 39, 2},
                               Family{"reparti", 528, 42, 80},      Family{"plu", 3888, 48, 5000},
                               Family{"iva", 243888, 29, 8},        Family{"val", 244120, 29, 4},
                               Family{"operatori", 244236, 33, 10}, Family{"prog_param", 244566, 428, 1},
                               Family{"logo", 244994, 10, 12}};

const Family* family(std::string_view name) {
  for (const Family& one : kFamilies)
    if (one.name == name) return &one;
  return nullptr;
}

void put(std::string& file, std::size_t at, const std::string& kind, const std::string& value) {
  if (kind == "text") {
    for (const char c : value) file[at++] = c;
    file[at] = '\0';
    return;
  }
  const auto number = static_cast<std::uint32_t>(std::stol(value));
  const std::size_t bytes = kind == "int" ? 4 : 1;
  for (std::size_t i = 0; i < bytes; ++i) file[at + i] = static_cast<char>((number >> (8 * i)) & 0xFF);
}

bool apply(std::string& file, std::istream& script) {
  for (std::string line; std::getline(script, line);) {
    std::istringstream words(line);
    std::string name, kind, value;
    std::size_t record = 0, offset = 0;
    if (!(words >> name >> record >> offset >> kind)) continue;
    std::getline(words >> std::ws, value);
    const Family* one = family(name);
    if (one == nullptr || record >= one->count) return false;
    put(file, one->start + record * one->record + offset, kind, value);
  }
  return true;
}

/// Of each line the height and the first letter, of a courtesy line its flag too.
std::string narrowed(const std::string& wide, const Family& one) {
  const bool courtesy = one.name == "cortesia";
  const std::size_t bytes = courtesy ? 27 : 26;
  std::string narrow(bytes * one.count, '\0');
  for (std::size_t line = 0; line < one.count; ++line) {
    narrow[line * bytes] = wide[line * one.record];
    narrow[line * bytes + 1] = wide[line * one.record + 1];
    if (courtesy) narrow[line * bytes + 26] = wide[line * one.record + 38];
  }
  return narrow;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 5) return 2;
  std::ifstream entered(argv[1], std::ios::binary);
  std::string file{std::istreambuf_iterator<char>(entered), {}};
  std::ifstream script(argv[2]);
  if (file.size() != 245114 || !apply(file, script)) return 1;
  const bool narrow = std::string_view(argv[4]) == "S";
  for (const Family& one : kFamilies) {
    std::string image = file.substr(one.start, one.record * one.count);
    if (narrow && (one.name == "intestazione" || one.name == "cortesia")) image = narrowed(image, one);
    // The files travel one byte longer than their records, the articles aside.
    if (one.name != "plu") image += '\0';
    std::ofstream written(std::string(argv[3]) + "/" + std::string(one.name) + ".bin", std::ios::binary);
    written << image;
    if (!written.flush()) return 1;
  }
  return 0;
}
