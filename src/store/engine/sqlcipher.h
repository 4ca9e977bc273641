#pragma once

#include "store/engine/late_library.h"

#include <sqlcipher/sqlite3.h>

namespace dao {

/// SQLCipher, loaded with the first file that is opened: with the encryption that it brings along
/// it is the biggest library of all, and the first window stands before any file is open.
struct Sqlcipher : LateLibrary {
    Sqlcipher() : LateLibrary(ORVA_SQLCIPHER, Binding::AtFirstCall) {}

    decltype(&sqlite3_open_v2) open = function("sqlite3_open_v2");
    decltype(&sqlite3_close_v2) close = function("sqlite3_close_v2");
    decltype(&sqlite3_key) key = function("sqlite3_key");
    decltype(&sqlite3_db_config) configure = function("sqlite3_db_config");
    decltype(&sqlite3_busy_timeout) busyTimeout = function("sqlite3_busy_timeout");
    decltype(&sqlite3_extended_result_codes) extendedResultCodes =
        function("sqlite3_extended_result_codes");
    decltype(&sqlite3_exec) execute = function("sqlite3_exec");
    decltype(&sqlite3_get_autocommit) getAutocommit = function("sqlite3_get_autocommit");
    decltype(&sqlite3_changes) changes = function("sqlite3_changes");
    decltype(&sqlite3_last_insert_rowid) lastInsertRowid = function("sqlite3_last_insert_rowid");

    decltype(&sqlite3_errmsg) errorMessage = function("sqlite3_errmsg");
    decltype(&sqlite3_errstr) errorText = function("sqlite3_errstr");
    decltype(&sqlite3_extended_errcode) extendedErrorCode = function("sqlite3_extended_errcode");
    decltype(&sqlite3_system_errno) systemErrorNumber = function("sqlite3_system_errno");

    decltype(&sqlite3_prepare_v2) prepare = function("sqlite3_prepare_v2");
    decltype(&sqlite3_finalize) finalize = function("sqlite3_finalize");
    decltype(&sqlite3_step) step = function("sqlite3_step");
    decltype(&sqlite3_reset) reset = function("sqlite3_reset");
    decltype(&sqlite3_clear_bindings) clearBindings = function("sqlite3_clear_bindings");
    decltype(&sqlite3_bind_null) bindNull = function("sqlite3_bind_null");
    decltype(&sqlite3_bind_int64) bindInt64 = function("sqlite3_bind_int64");
    decltype(&sqlite3_bind_double) bindDouble = function("sqlite3_bind_double");
    decltype(&sqlite3_bind_text64) bindText64 = function("sqlite3_bind_text64");
    decltype(&sqlite3_bind_blob64) bindBlob64 = function("sqlite3_bind_blob64");
    decltype(&sqlite3_bind_zeroblob) bindZeroblob = function("sqlite3_bind_zeroblob");

    decltype(&sqlite3_db_filename) dbFilename = function("sqlite3_db_filename");
    decltype(&sqlite3_stmt_readonly) isReadOnly = function("sqlite3_stmt_readonly");
    decltype(&sqlite3_column_count) columnCount = function("sqlite3_column_count");
    decltype(&sqlite3_column_value) columnValue = function("sqlite3_column_value");
    decltype(&sqlite3_column_int64) columnInt64 = function("sqlite3_column_int64");
    decltype(&sqlite3_column_text) columnText = function("sqlite3_column_text");
    decltype(&sqlite3_column_bytes) columnBytes = function("sqlite3_column_bytes");
    decltype(&sqlite3_value_type) valueType = function("sqlite3_value_type");
    decltype(&sqlite3_value_int64) valueInt64 = function("sqlite3_value_int64");
    decltype(&sqlite3_value_double) valueDouble = function("sqlite3_value_double");
    decltype(&sqlite3_value_text) valueText = function("sqlite3_value_text");
    decltype(&sqlite3_value_blob) valueBlob = function("sqlite3_value_blob");
    decltype(&sqlite3_value_bytes) valueBytes = function("sqlite3_value_bytes");

    decltype(&sqlite3_create_collation_v2) createCollation =
        function("sqlite3_create_collation_v2");
    decltype(&sqlite3_create_function_v2) createFunction = function("sqlite3_create_function_v2");
    decltype(&sqlite3_result_null) resultNull = function("sqlite3_result_null");
    decltype(&sqlite3_result_int) resultInt = function("sqlite3_result_int");
    decltype(&sqlite3_result_double) resultDouble = function("sqlite3_result_double");
    decltype(&sqlite3_result_text) resultText = function("sqlite3_result_text");
    decltype(&sqlite3_result_value) resultValue = function("sqlite3_result_value");
    decltype(&sqlite3_result_error) resultError = function("sqlite3_result_error");
};

/// The library. Raises 3051 where it is not installed or lacks a function.
const Sqlcipher& sqlcipher();

} // namespace dao
