#include "ecrsim/command_line.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <optional>
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
    Name{"rumore", FaultKind::Noise},
    Name{"taglio-testa", FaultKind::CutHead},
    Name{"taglio-marcatore", FaultKind::CutMarker},
};
constexpr std::string_view kKeysMode = "tasti";
constexpr std::string_view kPrinterStates = "OTE";
constexpr std::string_view kPaperStates = "OF";

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

char letter(const std::string& text, std::string_view letters, const std::string& refusal) {
  if (text.size() != 1 || letters.find(text[0]) == std::string_view::npos) refuse(refusal, text);
  return text[0];
}

/// The PC's time of day, on the date that `value` tells.
TillClock clockOn(const std::string& value) {
  const std::optional<Moment> date = momentOf(value + " 00:00:00");
  if (!date) refuse("La data si scrive GG/MM/AAAA", value);
  return [date = *date] {
    Moment now = systemMoment();
    now.year = date.year;
    now.month = date.month;
    now.day = date.day;
    return now;
  };
}

bool ofKeysAlone(FaultKind kind) {
  return kind == FaultKind::Noise || kind == FaultKind::CutHead || kind == FaultKind::CutMarker;
}

/// Key sequences have names for what they ask, in place of files.
void checkNames(const Fault& fault, const std::string& text) {
  const bool named = fault.file.empty() || fault.file == kStateSequence || fault.file == kDumpSequence;
  if (fault.mode == kKeySequences ? !named : ofKeysAlone(fault.what)) refuse("Guasto non previsto", text);
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
    request.options.state = letter(value, kStates, "Lo stato deve essere I, P, V, A o L");
  } else if (option == "--stampante") {
    request.options.printer = letter(value, kPrinterStates, "La stampante deve essere O, T o E");
  } else if (option == "--carta") {
    request.options.paper = letter(value, kPaperStates, "La carta deve essere O o F");
  } else if (option == "--fiscale") {
    request.options.fiscal = number(value, 0, kMaxBytes, option);
  } else if (option == "--seriale") {
    request.serial = value;
  } else if (option == "--data") {
    request.options.clock = clockOn(value);
  } else if (option == "--giornata") {
    request.salesDay = number(value, 0, kMaxBytes, option);
  } else if (option == "--fatture") {
    request.invoices = number(value, 0, kMaxBytes, option);
  } else if (option == "--seme") {
    request.seed = number(value, Seed::min(), Seed::max(), option);
  } else if (option == "--guasto") {
    request.options.faults.push_back(readFault(value));
  } else {
    refuse("Opzione sconosciuta", option);
  }
}

/// What an option without a value sets, null for any other.
bool* flagOf(Request& request, const std::string& option) {
  if (option == "--help") return &request.help;
  if (option == "--video") return &request.video;
  return option == "--chiusura" ? &request.closeDay : nullptr;
}

}  // namespace

Fault readFault(const std::string& text) {
  const std::size_t first = text.find(':');
  if (first == std::string::npos) refuse("Il guasto si scrive MODO[:FILE]:COSA", text);
  const std::size_t last = text.rfind(':');
  const std::string_view all = text;
  Fault fault;
  const std::string_view mode = all.substr(0, first);
  fault.mode = mode == kKeysMode ? kKeySequences
                                 : number<int>(mode, ECR_INFO_MODE, ECR_FISCAL_CLOSURE_MODE, "--guasto");
  if (last > first) fault.file = text.substr(first + 1, last - first - 1);
  const std::string_view name = all.substr(last + 1);
  const std::size_t equal = name.find('=');
  fault.what = what(name.substr(0, equal));
  checkNames(fault, text);
  if (equal == std::string_view::npos) return fault;
  if (fault.what != FaultKind::Code) refuse("Guasto non previsto", name);
  fault.code = number<int>(name.substr(equal + 1), 1, kMaxCode, "--guasto");
  return fault;
}

Request readCommandLine(std::span<const char* const> arguments) {
  Request request;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const std::string option = arguments[i];
    bool* const flag = flagOf(request, option);
    if (flag != nullptr) {
      *flag = true;
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
         "  --stampante O|T|E    stampante: in ordine, testa alta, errore (O)\n"
         "  --carta O|F          carta: presente, finita (O)\n"
         "  --video              mostra display e carta\n"
         "  --data GG/MM/AAAA    la cassa vive in questa data, all'ora del PC (la data del PC)\n"
         "  --chiusura           chiude prima la giornata fiscale rimasta aperta\n"
         "  --giornata N         batte N scontrini sugli articoli di plu.bin prima di rispondere\n"
         "  --fatture N          batte altri N scontrini con fattura, ai clienti di clienti.bin e ad altri\n"
         "  --seme K             seme della giornata e delle fatture (1)\n"
         "  --guasto MODO[:FILE]:COSA\n"
         "                       guasto a ogni comando di quel modo (e file): codice[=N], silenzio,\n"
         "                       taglio-prima, taglio-dentro, taglio-dopo, corto, lungo, spazzatura;\n"
         "                       si ripete a piacere; con MODO \"tasti\" (FILE: stato o dump) colpisce le\n"
         "                       sequenze di tasti, in rete e in seriale, e vi sono anche rumore,\n"
         "                       taglio-testa e taglio-marcatore\n"
         "  --help               questo testo\n";
}

}  // namespace ecrsim
