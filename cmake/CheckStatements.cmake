# cmake -DROOT=<tree> -P CheckStatements.cmake
# Reads every source under src/ and devices/: outside the store no text becomes a statement but by its wording and
# its values. A raw text, a value made by hand, SQL in a text of its own and a call of the engine are refused. In
# the store itself, what hands the engine a text that was put together is a line of the first list below; what
# takes a whole text for a statement outside it, a line of the second.
cmake_minimum_required(VERSION 3.25)
set(errors 0)
set(seen 0)
set(store "src/platform/store/")

set(laid_down
    # Statements that have gone through the translator, and the settings of a connection.
    [=[connection.cpp|if (sqlite3_exec(db_, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)]=]
    [=[opening.cpp|if (sqlite3_exec(db, kRules, nullptr, nullptr, nullptr) != SQLITE_OK)]=]
    [=[statement_cache.cpp|const int outcome = sqlite3_prepare_v2(db, sql.data(), static_cast<int>(sql.size()), &statement, nullptr)]=]
    [=[statement_cache.cpp|const int outcome = sqlite3_prepare_v3(db, sql.data(), static_cast<int>(sql.size()),]=]
    # Levels of a transaction: a number of the store's own.
    [=[connection.cpp|command(level_ == 0 ? std::string("BEGIN") : "SAVEPOINT " + levelName(level_ + 1))]=]
    [=[connection.cpp|command("RELEASE " + levelName(level))]=]
    [=[connection.cpp|command("ROLLBACK TO " + levelName(level))]=]
    # Guards of the columns of dates: names of the file's own tables, quoted.
    [=[schema.cpp|if (sqlite3_prepare_v2(db, sql, -1, &statement, nullptr) != SQLITE_OK) return false]=]
    [=[schema.cpp|return sqlite3_exec(db, sql.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK]=]
    [=[schema.cpp|return "CREATE TEMP TRIGGER IF NOT EXISTS " + quoted(name + column.table + "." + column.name) + " AFTER " +]=]
    [=[schema.cpp|const std::string updated = "UPDATE OF " + quoted(column.name)]=])

set(whole_texts
    # A batch of statements out of a file: to run what somebody wrote is all that it is for. The store's dialect
    # still bounds it: one statement a line, of those that work on tables, each within the limit of its time.
    [=[src/customers/statement_batch.cpp|varGlobal().DB_Clienti.Execute(store::Statement::AsWritten(windows1252::toText(riga.bytes)))]=])

set(verb "(SELECT|INSERT|UPDATE|DELETE|CREATE|DROP|ALTER|PRAGMA|ATTACH|REPLACE|SAVEPOINT|RELEASE|ROLLBACK)")

macro(wrong text)
  message(SEND_ERROR "${text}")
  math(EXPR errors "${errors} + 1")
endmacro()

# The lines of a file as a list: without comments, and without the signs that lists take for their own.
function(read_lines file)
  file(READ ${ROOT}/${file} text)
  string(REPLACE "\\" "/" text "${text}")
  string(REGEX REPLACE "[][]" "|" text "${text}")
  string(REGEX REPLACE "(^|\n)[ \t]*//[^\n]*" "\\1" text "${text}")
  string(REPLACE ";" "" text "${text}")
  string(REPLACE "\n" ";" text "${text}")
  set(lines "${text}" PARENT_SCOPE)
endfunction()

# Outside the store.
macro(check_program file line)
  if("${line}" MATCHES "AsWritten")
    string(STRIP "${line}" bare)
    list(FIND whole_texts "${file}|${bare}" place)
    if(place EQUAL -1)
      wrong("${file} takes a whole text for a statement: ${line}")
    else()
      list(APPEND found_whole ${place})
    endif()
  endif()
  if("${line}" MATCHES "StatementValue")
    wrong("${file} makes a value by hand, past text(), number(), rowId() and flag(): ${line}")
  endif()
  if("${line}" MATCHES "sqlite3")
    wrong("${file} speaks to the engine past the store: ${line}")
  endif()
  string(TOUPPER "${line}" loud)
  if("${loud}" MATCHES "(^|[^U])\"[ ]*${verb} " OR "${loud}" MATCHES "(QSTRING|QLATIN1|QBYTEARRAY|STRING)[A-Z0-9]*[({]U?\"[ ]*${verb} ")
    wrong("${file} keeps SQL in a text that is no wording: ${line}")
  endif()
endmacro()

# Within it.
macro(check_store file line)
  set(raw FALSE)
  if("${line}" MATCHES "sqlite3_(exec|prepare)" AND NOT "${line}" MATCHES "sqlite3_(exec|prepare[_v23]*)\\([^,]+, \"")
    set(raw TRUE)
  endif()
  if("${line}" MATCHES "\"[ ]*${verb} [^\"]*\" \\+")
    set(raw TRUE)
  endif()
  if(raw)
    string(STRIP "${line}" bare)
    string(REPLACE "${store}" "" name "${file}")
    list(FIND laid_down "${name}|${bare}" place)
    if(place EQUAL -1)
      wrong("${file} puts a text for the engine together, which is not laid down: ${bare}")
    else()
      list(APPEND found ${place})
    endif()
  endif()
endmacro()

set(found)
set(found_whole)
file(GLOB_RECURSE files RELATIVE ${ROOT} ${ROOT}/src/*.h ${ROOT}/src/*.cpp ${ROOT}/devices/*.h ${ROOT}/devices/*.cpp
     ${ROOT}/devices/*.c)
foreach(file IN LISTS files)
  math(EXPR seen "${seen} + 1")
  read_lines(${file})
  # Whatever the checks below look for is on one of these: the engine, the two doors, or a text of several words.
  list(FILTER lines INCLUDE REGEX "sqlite3|AsWritten|StatementValue|\"[ ]*[A-Za-z]+ ")
  foreach(line IN LISTS lines)
    if("${file}" MATCHES "^${store}")
      check_store("${file}" "${line}")
    else()
      check_program("${file}" "${line}")
    endif()
  endforeach()
endforeach()

# A line of a list that no file has any more would let the next one like it through.
macro(check_list list folder found)
  set(place 0)
  foreach(entry IN LISTS ${list})
    string(REGEX MATCH "^[^|]+" name "${entry}")
    if(EXISTS ${ROOT}/${folder}${name} AND NOT place IN_LIST ${found})
      wrong("${folder}${name} has no line like this any more: ${entry}")
    endif()
    math(EXPR place "${place} + 1")
  endforeach()
endmacro()
check_list(laid_down "${store}" found)
check_list(whole_texts "" found_whole)

if(seen EQUAL 0)
  message(FATAL_ERROR "no source read under ${ROOT}")
endif()
if(errors GREATER 0)
  message(FATAL_ERROR "${errors} wrong lines")
endif()
message(STATUS "${seen} files read, none wrong")
