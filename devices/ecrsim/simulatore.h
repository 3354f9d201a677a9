#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

/// A cash register that answers on the network, for tests (in process, a thread of its own) and for people
/// (the program `ecrsim`). Its memory is a folder: `plu.bin` sent to it is `plu.bin` there, and a
/// `venduto.bin` laid there is what it hands over.
namespace ecrsim {

/// What goes wrong, once a mode (and a file, if named) is asked for.
enum class Cosa {
  Codice,        ///< an error code in place of the work
  Silenzio,      ///< no answer at all
  TaglioPrima,   ///< the line is cut before the work is done
  TaglioDentro,  ///< the line is cut in the middle of the data: those sent to it, else those it answers with
  TaglioDopo,    ///< the work is done, the line is cut before the answer
  FileCorto,     ///< the file, or the reply, is handed over short; a file sent to it arrives short
  FileLungo,     ///< the same, too long
  Spazzatura,    ///< bytes that are no frame
};

struct Guasto {
  int modo = 0;
  /// Empty: whatever the file.
  std::string file{};
  Cosa cosa = Cosa::Codice;
  /// Error code for Cosa::Codice.
  int codice = 7;
  /// How often it strikes; 0: always.
  int volte = 0;
};

struct Opzioni {
  /// A loopback address, 127.0.0.0/8.
  std::string indirizzo = "127.0.0.20";
  /// The till's memory, made if it is missing; empty: the current folder.
  std::filesystem::path cartella{};
  /// Size class: "S", "L", or anything else.
  std::string bitmap = "L";
  /// State letter: I, P, V, A, L.
  char stato = 'I';
  int fiscale = 0;
  std::string modello = "KPR_80mm";
  std::string versione = "3.00";
  std::string mmc = "4";
  /// If not empty, the text that mode 0 answers with, whatever the rest says.
  std::string rispostaInfo{};
  std::vector<Guasto> guasti{};
  /// How long a frame may take once its first byte is there, and a reply to be taken.
  std::chrono::milliseconds attesa{10000};
};

/// One command as the till understood it.
struct Chiamata {
  int modo = 0;
  std::string file{};
  std::size_t byte = 0;
  bool operator==(const Chiamata&) const = default;
};

class Simulatore {
 public:
  /// Listens at once; throws std::system_error if it cannot.
  explicit Simulatore(Opzioni opzioni);
  ~Simulatore();
  Simulatore(const Simulatore&) = delete;
  Simulatore& operator=(const Simulatore&) = delete;

  /// All of these may be called from any thread.
  std::vector<Chiamata> chiamate() const;
  void dimenticaChiamate();
  void stato(char lettera);
  void guasti(std::vector<Guasto> guasti);
  void rispostaInfo(std::string testo);
  /// Whether a transfer is open.
  bool trasferimentoAperto() const;
  /// Rings up `scontrini` receipts of a day that the seed decides, over the articles of plu.bin: moves the
  /// sales counters of venduto.bin. Returns the takings in hundredths.
  std::int64_t giornata(int scontrini, std::uint32_t seme);
  /// What a key sequence prints to the line; empty for one that prints nothing or is not understood.
  std::string premi(const std::string& sequenza);
  const std::filesystem::path& cartella() const;
  const std::string& indirizzo() const;

 private:
  struct Interno;
  std::unique_ptr<Interno> interno_;
};

}  // namespace ecrsim
