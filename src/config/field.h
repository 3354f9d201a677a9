#pragma once

#include "core/record_field.h"

/// The records of the configuration are made of the program's record fields.
namespace config {

using record::Campo;
using record::coerente;
using record::Record;
using record::RecordLetto;
using record::Tipo;

using record::leggiByte;
using record::leggiFlag;
using record::leggiIntero;
using record::leggiSenzaSegno;
using record::leggiTesto;
using record::scriviByte;
using record::scriviFlag;
using record::scriviIntero;
using record::scriviSenzaSegno;
using record::scriviTesto;
using record::senzaTesto;

}  // namespace config
