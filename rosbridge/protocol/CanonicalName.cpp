#include "rosbridge/protocol/CanonicalName.h"

namespace rosbridge::protocol {

QString canonicalName(const QString& name)
{
    return name.isEmpty() || name.startsWith(u'/') ? name : u'/' + name;
}

} // namespace rosbridge::protocol
