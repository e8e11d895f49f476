#include "embedded_host/table_reader/xls/OleContainer.h"

#include <algorithm>
#include <mutex>

// GLib's headers name things as Qt's macros do.
#undef signals
#include <gsf/gsf.h>

namespace table_reader {
namespace {

constexpr int MaxNames = 4096;

void ignoreLog(const gchar*, GLogLevelFlags, const gchar*, gpointer) {}

/// Damaged containers make the library complain on standard error; our own sentence says it better.
void prepareLibrary()
{
    static std::once_flag once;
    std::call_once(once, [] {
        gsf_init();
        constexpr auto All = static_cast<GLogLevelFlags>(G_LOG_LEVEL_MASK);
        for (const char* domain : {static_cast<const char*>(nullptr), "libgsf", "libgsf:msole"}) {
            g_log_set_handler(domain, All, ignoreLog, nullptr);
        }
    });
}

/// The library leaves out entries that it finds damaged, as if they had never been.
bool hasStreamEntry(const QByteArray& file, const QString& name)
{
    constexpr int EntryBytes = 128; // the name comes first
    constexpr int KindOffset = 0x42;
    constexpr char Stream = 2;
    const QByteArray wide(reinterpret_cast<const char*>(name.utf16()),
                          (name.size() + 1) * 2); // as the file: little endian
    for (int at = file.indexOf(wide); at >= 0; at = file.indexOf(wide, at + 1)) {
        if (at % EntryBytes == 0 && at + KindOffset < file.size() && file.at(at + KindOffset) == Stream) {
            return true;
        }
    }
    return false;
}

} // namespace

void GObjectRelease::operator()(void* object) const
{
    g_object_unref(object);
}

GsfInputPtr memoryInput(const QByteArray& bytes)
{
    prepareLibrary();
    return GsfInputPtr(
        gsf_input_memory_new(reinterpret_cast<const guint8*>(bytes.constData()), bytes.size(), FALSE));
}

OleContainer::OleContainer(const QByteArray& bytes) : mFile(bytes), mBytes(memoryInput(bytes))
{
    mContainer.reset(gsf_infile_msole_new(mBytes.get(), nullptr));
    const int count = mContainer ? gsf_infile_num_children(mContainer.get()) : 0;
    for (int at = 0; at < std::min(count, MaxNames); ++at) {
        mNames.append(QString::fromUtf8(gsf_infile_name_by_index(mContainer.get(), at)));
    }
}

bool OleContainer::contains(const QString& name) const
{
    return mNames.contains(name, Qt::CaseInsensitive) || hasStreamEntry(mFile, name);
}

GsfInputPtr OleContainer::stream(const QString& name) const
{
    for (int at = 0; at < mNames.size(); ++at) {
        if (mNames.at(at).compare(name, Qt::CaseInsensitive) == 0) {
            return GsfInputPtr(gsf_infile_child_by_index(mContainer.get(), at));
        }
    }
    return nullptr;
}

} // namespace table_reader
