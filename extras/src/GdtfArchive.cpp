#include "Measurement_p.h"

#ifdef LXCOLOR_LIBZIP
#    include <memory>
#    include <zip.h>
#endif

namespace lxcolor {

#ifdef LXCOLOR_LIBZIP

namespace {

struct Closer
{
    void operator()(zip_t* archive) const { zip_discard(archive); }
    void operator()(zip_file_t* file) const { zip_fclose(file); }
};

[[noreturn]] void refuse(const QString& reason)
{
    throw InputFault{FixtureImport::tr("The archive cannot be read: %1").arg(reason)};
}

QString reasonOf(zip_error_t* error)
{
    QString reason = QString::fromUtf8(zip_error_strerror(error));
    zip_error_fini(error);
    return reason;
}

std::unique_ptr<zip_t, Closer> opened(const QByteArray& bytes)
{
    zip_error_t error;
    zip_error_init(&error);
    zip_source_t* const source =
        zip_source_buffer_create(bytes.constData(), static_cast<zip_uint64_t>(bytes.size()), 0, &error);
    if (!source)
        refuse(reasonOf(&error));
    zip_t* const archive = zip_open_from_source(source, ZIP_RDONLY, &error);
    if (!archive) {
        zip_source_free(source);
        refuse(reasonOf(&error));
    }
    zip_error_fini(&error);
    return std::unique_ptr<zip_t, Closer>(archive);
}

} // namespace

bool canReadArchives() { return true; }

QByteArray descriptionOfArchive(const QByteArray& archive)
{
    const auto zip = opened(archive);
    const zip_int64_t index = zip_name_locate(zip.get(), "description.xml", ZIP_FL_NOCASE);
    if (index < 0)
        refuse(FixtureImport::tr("there is no description.xml in it"));
    const std::unique_ptr<zip_file_t, Closer> file(zip_fopen_index(zip.get(), static_cast<zip_uint64_t>(index), 0));
    if (!file)
        refuse(QString::fromUtf8(zip_strerror(zip.get())));
    QByteArray content;
    char piece[65536];
    zip_int64_t size = 0;
    while ((size = zip_fread(file.get(), piece, sizeof piece)) > 0) {
        content.append(piece, static_cast<int>(size));
        if (content.size() > FixtureImport::largestFile)
            refuse(
                FixtureImport::tr("its description.xml is larger than %1 MiB").arg(FixtureImport::largestFile >> 20));
    }
    if (size < 0)
        refuse(QString::fromUtf8(zip_file_strerror(file.get())));
    return content;
}

#else

bool canReadArchives() { return false; }

QByteArray descriptionOfArchive(const QByteArray& /*archive*/)
{
    throw InputFault{
        FixtureImport::tr("This program was built without libzip: unpack the archive and import its description.xml")};
}

#endif

} // namespace lxcolor
