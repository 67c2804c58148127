// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "robot/network/TypeDefinitions.h"

#include "rosbridge/serialization/MessageDefinition.h"

#include <QStringList>

namespace robot::network {

using rosbridge::serialization::MessageDefinition;

namespace {

/// The name of a type after "# ", then its fields and constants.
constexpr const char* definitions = R"(
# control_msgs/JointTrajectoryControllerState
std_msgs/Header header
string[] joint_names
trajectory_msgs/JointTrajectoryPoint desired
trajectory_msgs/JointTrajectoryPoint actual
trajectory_msgs/JointTrajectoryPoint error
# dynamic_reconfigure/BoolParameter
string name
bool value
# dynamic_reconfigure/Config
dynamic_reconfigure/BoolParameter[] bools
dynamic_reconfigure/IntParameter[] ints
dynamic_reconfigure/StrParameter[] strs
dynamic_reconfigure/DoubleParameter[] doubles
dynamic_reconfigure/GroupState[] groups
# dynamic_reconfigure/DoubleParameter
string name
float64 value
# dynamic_reconfigure/GroupState
string name
bool state
int32 id
int32 parent
# dynamic_reconfigure/IntParameter
string name
int32 value
# dynamic_reconfigure/ReconfigureRequest
dynamic_reconfigure/Config config
# dynamic_reconfigure/ReconfigureResponse
dynamic_reconfigure/Config config
# dynamic_reconfigure/StrParameter
string name
string value
# geometry_msgs/Point
float64 x
float64 y
float64 z
# geometry_msgs/Point32
float32 x
float32 y
float32 z
# geometry_msgs/Polygon
geometry_msgs/Point32[] points
# geometry_msgs/PolygonStamped
std_msgs/Header header
geometry_msgs/Polygon polygon
# geometry_msgs/Pose
geometry_msgs/Point position
geometry_msgs/Quaternion orientation
# geometry_msgs/PoseWithCovariance
geometry_msgs/Pose pose
float64[36] covariance
# geometry_msgs/Quaternion
float64 x
float64 y
float64 z
float64 w
# geometry_msgs/Transform
geometry_msgs/Vector3 translation
geometry_msgs/Quaternion rotation
# geometry_msgs/TransformStamped
std_msgs/Header header
string child_frame_id
geometry_msgs/Transform transform
# geometry_msgs/Twist
geometry_msgs/Vector3 linear
geometry_msgs/Vector3 angular
# geometry_msgs/TwistWithCovariance
geometry_msgs/Twist twist
float64[36] covariance
# geometry_msgs/Vector3
float64 x
float64 y
float64 z
# nav_msgs/MapMetaData
time map_load_time
float32 resolution
uint32 width
uint32 height
geometry_msgs/Pose origin
# nav_msgs/OccupancyGrid
std_msgs/Header header
nav_msgs/MapMetaData info
int8[] data
# nav_msgs/Odometry
std_msgs/Header header
string child_frame_id
geometry_msgs/PoseWithCovariance pose
geometry_msgs/TwistWithCovariance twist
# rosapi/GetParamNamesRequest
# rosapi/GetParamNamesResponse
string[] names
# rosapi/GetParamRequest
string name
string default
# rosapi/GetParamResponse
string value
# rosapi/MessageDetailsRequest
string type
# rosapi/MessageDetailsResponse
rosapi/TypeDef[] typedefs
# rosapi/NodeDetailsRequest
string node
# rosapi/NodeDetailsResponse
string[] subscribing
string[] publishing
string[] services
# rosapi/NodesRequest
# rosapi/NodesResponse
string[] nodes
# rosapi/ServiceRequestDetailsRequest
string type
# rosapi/ServiceRequestDetailsResponse
rosapi/TypeDef[] typedefs
# rosapi/ServiceResponseDetailsRequest
string type
# rosapi/ServiceResponseDetailsResponse
rosapi/TypeDef[] typedefs
# rosapi/ServiceTypeRequest
string service
# rosapi/ServiceTypeResponse
string type
# rosapi/ServicesRequest
# rosapi/ServicesResponse
string[] services
# rosapi/TopicTypeRequest
string topic
# rosapi/TopicTypeResponse
string type
# rosapi/TopicsAndRawTypesRequest
# rosapi/TopicsAndRawTypesResponse
string[] topics
string[] types
string[] typedefs_full_text
# rosapi/TopicsForTypeRequest
string type
# rosapi/TopicsForTypeResponse
string[] topics
# rosapi/TopicsRequest
# rosapi/TopicsResponse
string[] topics
string[] types
# rosapi/TypeDef
string type
string[] fieldnames
string[] fieldtypes
int32[] fieldarraylen
string[] examples
string[] constnames
string[] constvalues
# rosgraph_msgs/Clock
time clock
# rosgraph_msgs/Log
byte DEBUG=1
byte INFO=2
byte WARN=4
byte ERROR=8
byte FATAL=16
std_msgs/Header header
byte level
string name
string msg
string file
string function
uint32 line
string[] topics
# sensor_msgs/CameraInfo
std_msgs/Header header
uint32 height
uint32 width
string distortion_model
float64[] D
float64[9] K
float64[9] R
float64[12] P
uint32 binning_x
uint32 binning_y
sensor_msgs/RegionOfInterest roi
# sensor_msgs/CompressedImage
std_msgs/Header header
string format
uint8[] data
# sensor_msgs/JointState
std_msgs/Header header
string[] name
float64[] position
float64[] velocity
float64[] effort
# sensor_msgs/LaserScan
std_msgs/Header header
float32 angle_min
float32 angle_max
float32 angle_increment
float32 time_increment
float32 scan_time
float32 range_min
float32 range_max
float32[] ranges
float32[] intensities
# sensor_msgs/RegionOfInterest
uint32 x_offset
uint32 y_offset
uint32 height
uint32 width
bool do_rectify
# std_msgs/Bool
bool data
# std_msgs/Header
uint32 seq
time stamp
string frame_id
# std_srvs/SetBoolRequest
bool data
# std_srvs/SetBoolResponse
bool success
string message
# std_srvs/TriggerRequest
# std_srvs/TriggerResponse
bool success
string message
# tf2_msgs/TFMessage
geometry_msgs/TransformStamped[] transforms
# trajectory_msgs/JointTrajectory
std_msgs/Header header
string[] joint_names
trajectory_msgs/JointTrajectoryPoint[] points
# trajectory_msgs/JointTrajectoryPoint
float64[] positions
float64[] velocities
float64[] accelerations
float64[] effort
duration time_from_start
)";

} // namespace

TypeDefinitions::TypeDefinitions()
{
    QString type;
    const QStringList lines = QString::fromLatin1(definitions).split(u'\n', Qt::SkipEmptyParts);
    for (const QString& line : lines) {
        if (line.startsWith(u'#')) {
            type = line.mid(2);
            m_texts.insert(type, QLatin1String(""));
        } else {
            m_texts[type] += line + u'\n';
        }
    }
}

void TypeDefinitions::add(const MessageDefinition& definition)
{
    for (const MessageDefinition::Type& type : definition.types()) {
        QString text(QLatin1String(""));
        for (const QString& constant : type.constants)
            text += constant + u'\n';
        for (const MessageDefinition::Field& field : type.fields) {
            QString brackets;
            if (field.arrayLength == MessageDefinition::anyLength)
                brackets = QStringLiteral("[]");
            else if (field.arrayLength != MessageDefinition::noArray)
                brackets = QStringLiteral("[%1]").arg(field.arrayLength);
            text += field.type + brackets + u' ' + field.name + u'\n';
        }
        m_texts.insert(type.name, text);
    }
}

} // namespace robot::network
