#include "bench/resident.h"

#include <malloc.h>

#include <fstream>
#include <stdexcept>
#include <string>

namespace {

long figure(const std::string& name) {
  std::ifstream status("/proc/self/status");
  std::string word;
  long value = 0;
  while (status >> word)
    if (word == name && status >> value) return value;
  throw std::runtime_error("no figure of the memory");
}

}  // namespace

long resident::now() {
  return figure("VmRSS:");
}

long resident::peak() {
  return figure("VmHWM:");
}

void resident::forgetPeak() {
  // What earlier rounds left free would hide what this one takes.
  malloc_trim(0);
  std::ofstream reset("/proc/self/clear_refs");
  // The system's word for the peak alone.
  reset << "5" << std::flush;
  if (!reset) throw std::runtime_error("the peak stays");
}
