#include "devices/libreria.h"

#include <dlfcn.h>

#include <array>
#include <stdexcept>

namespace {

constexpr int kBuffer = 256;

template <class Funzione>
void cerca(void* maniglia, const char* nome, Funzione& funzione) {
  funzione = reinterpret_cast<Funzione>(dlsym(maniglia, nome));
  if (funzione == nullptr) throw std::runtime_error(nome);
}

}  // namespace

Libreria::Libreria() : maniglia_(dlopen(GESTIONALE_APP "/libecrcom.so", RTLD_NOW)) {
  if (maniglia_ == nullptr) throw std::runtime_error(dlerror());
  cerca(maniglia_, "ecr_command", ecr_command);
  cerca(maniglia_, "ecr_get_err", ecr_get_err);
  cerca(maniglia_, "ecr_conn_xonxoff_ntw", ecr_conn_xonxoff_ntw);
  cerca(maniglia_, "ecr_disc_xonxoff_ntw", ecr_disc_xonxoff_ntw);
  cerca(maniglia_, "ecr_send_xonxoff_ntw", ecr_send_xonxoff_ntw);
  cerca(maniglia_, "ecr_recv_xonxoff_ntw", ecr_recv_xonxoff_ntw);
  cerca(maniglia_, "ecr_date_decode", ecr_date_decode);
  cerca(maniglia_, "ecr_dates_decode", ecr_dates_decode);
  cerca(maniglia_, "ecr_time_decode", ecr_time_decode);
  cerca(maniglia_, "ecr_oro_encode", ecr_oro_encode);
  cerca(maniglia_, "ecr_set_timeout", ecr_set_timeout);
}

Libreria::~Libreria() {
  ecr_set_timeout(ECR_CONNECT_MS, ECR_REPLY_MS);
  dlclose(maniglia_);
}

int Libreria::comando(const QString& ip, int modo, const QByteArray& file) {
  QByteArray indirizzo = ip.toLatin1();
  QByteArray nome = file;
  risposta = QByteArray(kBuffer, ' ');
  return ecr_command(indirizzo.data(), nome.data(), modo, risposta.data(), kBuffer);
}

QByteArray Libreria::messaggio(int codice) const {
  std::array<char, 81> testo;
  ecr_get_err(static_cast<std::int16_t>(codice), testo.data());
  return testo.data();
}
