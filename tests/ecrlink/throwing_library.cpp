// A communications library in C++ whose maker has let its exceptions out.

#include <cstdint>
#include <cstring>
#include <new>
#include <stdexcept>

#include "platform/ecrcom/ecrcom.h"

namespace {

constexpr char kInfo[] = "V=1.00,B=L,M=4,a=,b=,c=,d=,e=,f=,g=,S=I,T=PROVA,h=,i=,l=,m=,F=0,n=,o=";

/// The mode that fails, and with what: 0 memory, 1 a text, 2 no exception of the library's.
int failingMode = -1;
int with = 0;

}  // namespace

extern "C" {

ECRCOM_API void lancia(int mode, int what) {
  failingMode = mode;
  with = what;
}

int16_t ecr_command(char*, char*, int32_t mode, char* buffer, int32_t length) {
  if (mode == failingMode) {
    if (with == 0) throw std::bad_alloc();
    if (with == 1) throw std::runtime_error("guasto");
    throw 7;
  }
  if (mode == ECR_INFO_MODE && length >= static_cast<int32_t>(sizeof kInfo))
    std::memcpy(buffer, kInfo, sizeof kInfo - 1);
  return 0;
}

void ecr_get_err(int16_t, char* text) {
  *text = '\0';
}
}
