#include "office/zip/zip_part.h"

#include <orcus/zip_archive.hpp>
#include <orcus/zip_archive_stream.hpp>

#include <exception>
#include <vector>

extern "C" __attribute__((visibility("default"))) bool
orvaReadZipPart(const unsigned char* archive, std::size_t size, const char* name, TakeZipPart take,
                void* taker) {
    try {
        orcus::zip_archive_stream_blob stream(archive, size);
        orcus::zip_archive parts(&stream);
        parts.load();
        std::vector<unsigned char> bytes;
        if (!parts.read_file_entry(name, bytes))
            return false;
        take(bytes.data(), bytes.size(), taker);
        return true;
    } catch (const std::exception&) {
        return false;
    }
}
