#pragma once

#include <cstddef>

/// The one function of lib/liborva_zip.so: a module of its own, since the library behind it speaks
/// C++ and so can't be loaded by itself when it is first needed.

/// Is given the bytes of a part, which are gone when it returns.
using TakeZipPart = void (*)(const unsigned char* bytes, std::size_t size, void* taker);

/// Unpacks a part of a zip archive, by its path in there, and hands it to `take`. Answers false
/// where the bytes are no archive or there is no such part.
using ReadZipPart = bool (*)(const unsigned char* archive, std::size_t size, const char* name,
                             TakeZipPart take, void* taker);
