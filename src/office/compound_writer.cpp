#include "office/compound_writer.h"

#include "store/engine/error.h"
#include "store/engine/late_library.h"

#include <gsf/gsf-outfile-msole.h>
#include <gsf/gsf-output-memory.h>
#include <gsf/gsf-utils.h>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

struct Gsf : dao::LateLibrary {
    Gsf() : LateLibrary(ORVA_GSF) {
        if (isWhole())
            init();
    }

    decltype(&gsf_init) init = function("gsf_init");
    decltype(&gsf_output_memory_new) memoryNew = function("gsf_output_memory_new");
    decltype(&gsf_output_memory_get_bytes) memoryBytes = function("gsf_output_memory_get_bytes");
    decltype(&gsf_outfile_msole_new) compoundNew = function("gsf_outfile_msole_new");
    decltype(&gsf_outfile_new_child) newChild = function("gsf_outfile_new_child");
    decltype(&gsf_output_write) write = function("gsf_output_write");
    decltype(&gsf_output_close) close = function("gsf_output_close");
    decltype(&gsf_output_size) size = function("gsf_output_size");
    decltype(&g_object_unref) unref = function("g_object_unref");
};

const Gsf& gsf() {
    static const Gsf library;
    return library;
}

struct ReleaseGsfObject {
    void operator()(void* object) const { gsf().unref(object); }
};
template<typename Object>
using GsfObject = std::unique_ptr<Object, ReleaseGsfObject>;

// The library's own casts ask for types of its objects, and so for a library that is linked.
GsfOutput* asOutput(GsfOutfile* file) {
    return reinterpret_cast<GsfOutput*>(file);
}

bool writeStream(GsfOutfile* file, const char* name, const QByteArray& stream) {
    const GsfObject<GsfOutput> child(gsf().newChild(file, name, false));
    const auto* bytes = reinterpret_cast<const guint8*>(stream.constData());
    return child && gsf().write(child.get(), static_cast<size_t>(stream.size()), bytes) &&
           gsf().close(child.get());
}

} // namespace

QByteArray compoundFile(const char* streamName, const QByteArray& stream) {
    if (!gsf().isWhole())
        throw dao::EngineError(dao::NotSupported,
                               u"Workbooks of the kind .xls can't be written: the library libgsf "
                               "is not installed."_s);
    const GsfObject<GsfOutput> memory(gsf().memoryNew());
    const GsfObject<GsfOutfile> file(gsf().compoundNew(memory.get()));
    if (!file || !writeStream(file.get(), streamName, stream) || !gsf().close(asOutput(file.get())))
        throw dao::EngineError(dao::DiskError, u"The workbook could not be put together."_s);
    const auto* bytes = gsf().memoryBytes(reinterpret_cast<GsfOutputMemory*>(memory.get()));
    return {reinterpret_cast<const char*>(bytes), static_cast<qsizetype>(gsf().size(memory.get()))};
}
