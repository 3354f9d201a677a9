#pragma once

void RiempiPrezzi();
