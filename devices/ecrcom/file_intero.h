#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "ecrcom/trama.h"

namespace ecrcom {

enum class EsitoFile { Fatto, Assente, TroppoGrande, Errore };

/// The whole of a regular file of at most kByteMassimi bytes, behind `davanti` bytes of any value.
EsitoFile leggiFile(const std::string& percorso, std::vector<std::uint8_t>& byte, std::size_t davanti = 0);
/// Puts a file in the place of another at one stroke: whoever looks, and whatever fails, the name stands for
/// the bytes before or for those after, and no partial file stays behind. With `sincronizza` the new bytes
/// are on the disk before the name changes.
EsitoFile sostituisciFile(const std::string& percorso, Byte byte, bool sincronizza);

}  // namespace ecrcom
