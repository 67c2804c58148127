#include "robot/link/Names.h"

namespace robot::link {

QString canonicalName(const QString& name)
{
    return name.isEmpty() || name.startsWith(u'/') ? name : u'/' + name;
}

} // namespace robot::link
