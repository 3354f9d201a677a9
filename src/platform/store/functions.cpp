#include "platform/store/functions.h"

#include <sqlite3.h>

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "platform/clock.h"
#include "platform/store/date_time.h"
#include "platform/store/like_pattern.h"

namespace store {

namespace {

/// Of a pattern with a text: some tenths of a second at worst.
constexpr std::size_t kMostCompared = std::size_t{1} << 24U;

/// Functions of the engine's that may take the square of a text's length, and that no statement of this
/// program's and no template uses. A file may, in a view or a rule of its own; and nobody asks for the time
/// within a function.
struct Withdrawn {
  const char* name;
  int arguments;
};
constexpr std::array kWithdrawn{Withdrawn{"instr", 2}, Withdrawn{"replace", 3},   Withdrawn{"trim", 2},
                                Withdrawn{"ltrim", 2}, Withdrawn{"rtrim", 2},     Withdrawn{"glob", 2},
                                Withdrawn{"like", 3},  Withdrawn{"json_patch", 2}};

/// A text in UTF-8 is read where it stands, without a zero behind it: to add one the engine copies a bound
/// value.
std::string_view text(sqlite3_value* value) {
  const bool ready = sqlite3_value_type(value) == SQLITE_TEXT && sqlite3_value_encoding(value) == SQLITE_UTF8;
  const void* byte = ready ? sqlite3_value_blob(value) : sqlite3_value_text(value);
  if (byte == nullptr) return {};
  return {static_cast<const char*>(byte), static_cast<std::size_t>(sqlite3_value_bytes(value))};
}

bool isNull(sqlite3_value* value) {
  return sqlite3_value_type(value) == SQLITE_NULL;
}

void reply(sqlite3_context* context, std::string_view answer) {
  sqlite3_result_text(context, answer.data(), static_cast<int>(answer.size()), SQLITE_TRANSIENT);
}

void like(sqlite3_context* context, int, sqlite3_value** values) {
  if (isNull(values[0]) || isNull(values[1])) return sqlite3_result_null(context);
  const std::optional<bool> matches = MatchesPattern(text(values[0]), text(values[1]), kMostCompared);
  if (!matches) return sqlite3_result_error_toobig(context);
  sqlite3_result_int(context, *matches ? 1 : 0);
}

/// The last one stays: a reception asks for the same day in the same form at each of its rows.
void format(sqlite3_context* context, int, sqlite3_value** values) {
  struct Last {
    std::string value;
    std::string form;
    std::string result;
  };
  thread_local Last last;
  if (isNull(values[0])) return reply(context, "");
  const std::string_view value = text(values[0]);
  const std::string_view form = text(values[1]);
  if (last.value != value || last.form != form) {
    const auto moment = ReadDateTime(value);
    last = {std::string(value), std::string(form),
            moment ? FormatDateTime(*moment, form) : std::string(value)};
  }
  reply(context, last.result);
}

/// The last day stays too.
void today(sqlite3_context* context, int, sqlite3_value**) {
  thread_local std::pair<QDate, std::string> last;
  const QDate day = static_cast<const Clock*>(sqlite3_user_data(context))->today();
  if (last.second.empty() || last.first != day)
    last = {day, SortableForm({day.year(), day.month(), day.day(), 0, 0, 0})};
  reply(context, last.second);
}

void sortableDate(sqlite3_context* context, int, sqlite3_value** values) {
  if (isNull(values[0])) return sqlite3_result_null(context);
  const auto moment = ReadDateTime(text(values[0]));
  if (moment) return reply(context, SortableForm(*moment));
  const std::string reason = "data non valida '" + std::string(text(values[0])) + "'";
  sqlite3_result_error(context, reason.c_str(), -1);
}

void shortMoment(sqlite3_context* context, int, sqlite3_value** values) {
  constexpr std::size_t kCentury = 2;
  const auto moment = isNull(values[0]) ? std::nullopt : ReadDateTime(text(values[0]));
  if (!moment) return sqlite3_result_null(context);
  reply(context, SortableForm(*moment).substr(kCentury));
}

using Body = void (*)(sqlite3_context*, int, sqlite3_value**);

void registerFunction(sqlite3* db, const char* name, int arguments, int property, Body body,
                      const void* data = nullptr) {
  sqlite3_create_function_v2(db, name, arguments, SQLITE_UTF8 | SQLITE_INNOCUOUS | property,
                             const_cast<void*>(data), body, nullptr, nullptr, nullptr);
}

}  // namespace

void RegisterFunctions(sqlite3* db, const Clock& clock) {
  for (const Withdrawn& function : kWithdrawn)
    sqlite3_create_function_v2(db, function.name, function.arguments, SQLITE_UTF8, nullptr, nullptr, nullptr,
                               nullptr, nullptr);
  registerFunction(db, "like", 2, SQLITE_DETERMINISTIC, like);
  registerFunction(db, kFormatFunction, 2, SQLITE_DETERMINISTIC, format);
  registerFunction(db, "oggi", 0, 0, today, &clock);
  registerFunction(db, kDateFunction, 1, SQLITE_DETERMINISTIC, sortableDate);
  registerFunction(db, kShortMomentFunction, 1, SQLITE_DETERMINISTIC, shortMoment);
}

}  // namespace store
