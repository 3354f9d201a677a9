#include "devices/loaded_library.h"

#include <dlfcn.h>

#include <array>
#include <stdexcept>

namespace {

constexpr int kBuffer = 256;

template <class Function>
void search(void* handle, const char* name, Function& function) {
  function = reinterpret_cast<Function>(dlsym(handle, name));
  if (function == nullptr) throw std::runtime_error(name);
}

}  // namespace

Library::Library() : handle_(dlopen(GESTIONALE_APP "/libecrcom.so", RTLD_NOW)) {
  if (handle_ == nullptr) throw std::runtime_error(dlerror());
  search(handle_, "ecr_command", ecr_command);
  search(handle_, "ecr_get_err", ecr_get_err);
  search(handle_, "ecr_conn_xonxoff_ntw", ecr_conn_xonxoff_ntw);
  search(handle_, "ecr_disc_xonxoff_ntw", ecr_disc_xonxoff_ntw);
  search(handle_, "ecr_send_xonxoff_ntw", ecr_send_xonxoff_ntw);
  search(handle_, "ecr_recv_xonxoff_ntw", ecr_recv_xonxoff_ntw);
  search(handle_, "ecr_date_decode", ecr_date_decode);
  search(handle_, "ecr_dates_decode", ecr_dates_decode);
  search(handle_, "ecr_time_decode", ecr_time_decode);
  search(handle_, "ecr_oro_encode", ecr_oro_encode);
  search(handle_, "ecr_set_timeout", ecr_set_timeout);
}

Library::~Library() {
  ecr_set_timeout(ECR_CONNECT_MS, ECR_REPLY_MS);
  dlclose(handle_);
}

int Library::command(const QString& ip, int mode, const QByteArray& file) {
  QByteArray address = ip.toLatin1();
  QByteArray name = file;
  reply = QByteArray(kBuffer, ' ');
  return ecr_command(address.data(), name.data(), mode, reply.data(), kBuffer);
}

QByteArray Library::message(int code) const {
  std::array<char, 81> text;
  ecr_get_err(static_cast<std::int16_t>(code), text.data());
  return text.data();
}
