#include "ecrsim/command_line.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <stdexcept>
#include <string_view>

#include "ecrsim/listener.h"
#include "platform/ecrcom/ecrcom.h"

namespace ecrsim {
namespace {

constexpr std::string_view kStates = "IPVAL";
constexpr int kMaxCode = std::numeric_limits<std::int16_t>::max();
constexpr int kMaxBytes = 1000000;

struct Name {
  std::string_view text;
  FaultKind what;
};

constexpr std::array kNames{
    Name{"codice", FaultKind::Code},
    Name{"silenzio", FaultKind::Silence},
    Name{"taglio-prima", FaultKind::CutBefore},
    Name{"taglio-dentro", FaultKind::CutWithin},
    Name{"taglio-dopo", FaultKind::CutAfter},
    Name{"corto", FaultKind::ShortFile},
    Name{"lungo", FaultKind::LongFile},
    Name{"spazzatura", FaultKind::Garbage},
};

[[noreturn]] void refuse(const std::string& what, std::string_view value) {
  throw std::invalid_argument(what + ": " + std::string(value));
}

template <class Number>
Number number(std::string_view text, Number min, Number max, const std::string& what) {
  Number value{};
  const char* const end = text.data() + text.size();
  const auto [where, error] = std::from_chars(text.data(), end, value);
  if (error != std::errc() || where != end || value < min || value > max) refuse(what, text);
  return value;
}

char state(const std::string& text) {
  if (text.size() != 1 || kStates.find(text[0]) == std::string_view::npos)
    refuse("Lo stato deve essere I, P, V, A o L", text);
  return text[0];
}

FaultKind what(std::string_view name) {
  const auto entry =
      std::find_if(kNames.begin(), kNames.end(), [&](const Name& one) { return one.text == name; });
  if (entry == kNames.end()) refuse("Guasto non previsto", name);
  return entry->what;
}

void apply(Request& request, const std::string& option, const std::string& value) {
  using Seed = std::numeric_limits<std::uint32_t>;
  if (option == "--address") {
    if (!loopbackAddress(value)) refuse("L'indirizzo deve essere locale (127.x.y.z)", value);
    request.options.address = value;
  } else if (option == "--dir") {
    request.options.folder = value;
  } else if (option == "--bitmap") {
    request.options.bitmap = value;
  } else if (option == "--stato") {
    request.options.state = state(value);
  } else if (option == "--fiscale") {
    request.options.fiscal = number(value, 0, kMaxBytes, option);
  } else if (option == "--seriale") {
    request.serial = value;
  } else if (option == "--giornata") {
    request.salesDay = number(value, 0, kMaxBytes, option);
  } else if (option == "--seme") {
    request.seed = number(value, Seed::min(), Seed::max(), option);
  } else if (option == "--guasto") {
    request.options.faults.push_back(readFault(value));
  } else {
    refuse("Opzione sconosciuta", option);
  }
}

}  // namespace

Fault readFault(const std::string& text) {
  const std::size_t first = text.find(':');
  if (first == std::string::npos) refuse("Il guasto si scrive MODO[:FILE]:COSA", text);
  const std::size_t last = text.rfind(':');
  const std::string_view all = text;
  Fault fault;
  fault.mode = number<int>(all.substr(0, first), ECR_INFO_MODE, ECR_FISCAL_CLOSURE_MODE, "--guasto");
  if (last > first) fault.file = text.substr(first + 1, last - first - 1);
  const std::string_view name = all.substr(last + 1);
  const std::size_t equal = name.find('=');
  fault.what = what(name.substr(0, equal));
  if (equal == std::string_view::npos) return fault;
  if (fault.what != FaultKind::Code) refuse("Guasto non previsto", name);
  fault.code = number<int>(name.substr(equal + 1), 1, kMaxCode, "--guasto");
  return fault;
}

Request readCommandLine(std::span<const char* const> arguments) {
  Request request;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const std::string option = arguments[i];
    if (option == "--help") {
      request.help = true;
      continue;
    }
    if (i + 1 == arguments.size()) refuse("Opzione sconosciuta o senza valore", option);
    apply(request, option, arguments[++i]);
  }
  return request;
}

const char* helpText() {
  return "ecrsim - cassa simulata\n"
         "\n"
         "  --address INDIRIZZO  indirizzo locale su cui risponde (127.0.0.20)\n"
         "  --dir CARTELLA       memoria della cassa (cartella corrente)\n"
         "  --bitmap S|L|...     classe di grafica (L)\n"
         "  --stato I|P|V|A|L    stato: idle, programmazione, vendita, azzeramento, lettura (I)\n"
         "  --fiscale N          dati fiscali non ancora chiusi (0)\n"
         "  --seriale LINK       apre anche una linea seriale, raggiungibile da LINK\n"
         "  --giornata N         batte N scontrini sugli articoli di plu.bin prima di rispondere\n"
         "  --seme K             seme della giornata (1)\n"
         "  --guasto MODO[:FILE]:COSA\n"
         "                       guasto a ogni comando di quel modo (e file): codice[=N], silenzio,\n"
         "                       taglio-prima, taglio-dentro, taglio-dopo, corto, lungo, spazzatura;\n"
         "                       si ripete a piacere\n"
         "  --help               questo testo\n";
}

}  // namespace ecrsim
