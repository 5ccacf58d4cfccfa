#include "AppSupportFolder_p.h"

namespace lxcolor {

namespace {

AppSupportLookup appSupportLookup = platformAppSupportFolder;
QString appSupportString;

} // namespace

QString appSupportFolder()
{
    if (appSupportString.isEmpty())
        appSupportString = appSupportLookup();
    return appSupportString;
}

void setAppSupportLookup(AppSupportLookup lookup)
{
    appSupportLookup = lookup ? lookup : platformAppSupportFolder;
    appSupportString.clear();
}

} // namespace lxcolor
