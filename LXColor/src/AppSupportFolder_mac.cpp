#include "AppSupportFolder_p.h"

#include <CoreFoundation/CoreFoundation.h>
#include <CoreServices/CoreServices.h>
#include <vector>

namespace lxcolor {

namespace {

/// A Core Foundation object that is released with its owner.
template <typename Ref>
class Released
{
public:
    explicit Released(Ref ref) : m_ref(ref) {}
    ~Released()
    {
        if (m_ref)
            CFRelease(m_ref);
    }
    Released(const Released&) = delete;
    Released& operator=(const Released&) = delete;
    operator Ref() const { return m_ref; }

private:
    Ref m_ref;
};

} // namespace

QString platformAppSupportFolder()
{
    FSRef folder;
    if (FSFindFolder(kUserDomain, kApplicationSupportFolderType, kCreateFolder, &folder) != noErr)
        return {};
    const Released<CFURLRef> url(CFURLCreateFromFSRef(kCFAllocatorDefault, &folder));
    if (!url)
        return {};
    const Released<CFStringRef> path(CFURLCopyFileSystemPath(url, kCFURLPOSIXPathStyle));
    if (!path)
        return {};
    std::vector<char> bytes(static_cast<std::size_t>(CFStringGetLength(path)) + 2);
    const auto size = static_cast<CFIndex>(bytes.size());
    if (!CFStringGetCString(path, bytes.data(), size, CFStringGetSystemEncoding()))
        return {};
    return QString::fromUtf8(bytes.data());
}

} // namespace lxcolor
