#pragma once

#include "articles/csv_import.h"

class QWidget;

namespace workspace {

/// `Form_ATTESA` over `schermo` while an import runs, its bar moving with the bytes read.
articles::AttesaImport AttesaDi(QWidget& schermo, Contesto& contesto);

}  // namespace workspace
