#include "host/workbench/HelpTopics.h"

#include <QCoreApplication>

namespace host::workbench {

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("host::workbench::HelpTopics", text);
}

} // namespace

HelpTopic helpTopic(const QString& context)
{
    if (context == QLatin1String("toolbar")) {
        return {tr("Connecting"),
                tr("<p>The address field names the robot to connect to: a host name or an IP "
                   "address, with <i>:port</i> behind it if the port is not 9090. Its list holds "
                   "the addresses used before.</p>"
                   "<p>The button beside it connects; Return in the field does the same. Its "
                   "picture and its tool tip show the state of the connection. Press it again to "
                   "end the connection, or to give up while it is being made.</p>"
                   "<p>While there is a connection the address cannot be changed.</p>")};
    }
    return {tr("The workbench"),
            tr("<p>The workbench shows a device plugin at work: the plugin's tool bar above, its "
               "dialog in the middle, and what the device is doing in the line below.</p>"
               "<p>Type the robot's address into the tool bar and press the connect button. "
               "Without a robot at hand, connect to the simulated one: the line below says where "
               "it runs.</p>")};
}

} // namespace host::workbench
