#pragma once

#include <vector>

#include "bench/comparison.h"

/// What each work may cost beside its baselines.
inline const std::vector<comparison::Limit> kLimits{
    {"import", "preparati", 2.0},
    {"import", "shell", 0.7},
    {"reception", "preparati", 2.0},
    {"reception", "shell", 0.7},
    {"save_plu", "preparati", 2.0},
    {"save_plu", "shell", 0.7},
    {"fill_plu", "select", 1.5},
    {"send", "socket", 2.0},
    {"start", "window_with_text", 1.3},
    {"archive_open", "lettura", 1.5},
    {"archive_search", "lettura", 1.5},
    {"archive_save", "lettura", 1.5},
    {"archive_export", "lettura", 1.5},
    {"sales_open", "lettura", 1.5},
    {"sales_refresh", "lettura", 1.5},
    {"sales_export", "lettura", 1.5},
    {"renumber", "preparati", 2.0},
    {"renumber_no_ean", "preparati", 3.0},
    {"plu_grid", "modello", 1.5},
    {"configuration_load", "read", 1.5},
    {"configuration_save", "write", 1.5},
    {"configuration_send", "socket", 1.5},
    {"configuration_reception", "socket", 1.5},
    {"invoice_reception", "preparati", 1.5},
    {"invoice_again", "preparati", 1.5},
    {"customer_reception", "preparati", 1.5},
    {"customer_again", "preparati", 1.5},
    {"invoice_open", "lettura", 1.5},
    {"invoice_refresh", "lettura", 1.5},
    {"invoice_search", "lettura", 1.5},
    {"customer_search", "lettura", 1.5},
    {"dump", "copia", 1.5},
    {"dump_long", "copia", 1.5},
    {"serial_pace", "linea", 1.05},
    {"serial_cpu", "linea", 0.05},
};
