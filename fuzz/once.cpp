// A fuzzer as a test of the suite: without the fuzzing engine, on the seeds of a folder and on some hundred
// inputs of a generator that begins with the same number each time. It ends as `check` does where something
// does not hold.

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t count);
extern "C" [[gnu::weak]] int LLVMFuzzerInitialize(int* count, char*** arguments);

namespace {

using Input = std::vector<std::uint8_t>;

constexpr int kGenerated = 300;
constexpr std::size_t kLongest = 400;

Input whole(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  Input input;
  for (std::istreambuf_iterator<char> at(stream), end; at != end; ++at)
    input.push_back(static_cast<std::uint8_t>(*at));
  return input;
}

void run(const Input& input) {
  static_cast<void>(LLVMFuzzerTestOneInput(input.data(), input.size()));
}

}  // namespace

int main(int count, char** arguments) {
  if (LLVMFuzzerInitialize != nullptr) LLVMFuzzerInitialize(&count, &arguments);
  int seeds = 0;
  if (count > 1)
    for (const auto& file : std::filesystem::directory_iterator(arguments[1])) {
      run(whole(file.path()));
      ++seeds;
    }
  std::mt19937 generator(1);
  for (int round = 0; round < kGenerated; ++round) {
    Input input(generator() % kLongest);
    for (std::uint8_t& byte : input) byte = static_cast<std::uint8_t>(generator());
    run(input);
  }
  std::printf("%d seeds and %d generated inputs hold\n", seeds, kGenerated);
  return count > 1 && seeds == 0 ? 1 : 0;
}
