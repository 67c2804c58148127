# SPDX-FileCopyrightText: the Quandrel device GUI authors
# SPDX-License-Identifier: BSD-3-Clause

"""Calls the services of quandrel-robot with none of our code in between.

Usage: services_test.py PROGRAM [unittest arguments]
"""

import json
import re
import time

from endpoint import Client, EndpointTest, main

TRIGGER = "std_srvs/Trigger"
TOPICS = {
    "/camera/camera_info": "sensor_msgs/CameraInfo",
    "/camera/image_raw/compressed": "sensor_msgs/CompressedImage",
    "/clock": "rosgraph_msgs/Clock",
    "/cmd_vel": "geometry_msgs/Twist",
    "/drive/disabled": "std_msgs/Bool",
    "/footprint": "geometry_msgs/PolygonStamped",
    "/map": "nav_msgs/OccupancyGrid",
    "/odom": "nav_msgs/Odometry",
    "/rosout": "rosgraph_msgs/Log",
    "/scan": "sensor_msgs/LaserScan",
    "/stopped": "std_msgs/Bool",
    "/tf": "tf2_msgs/TFMessage",
}
SERVICES = {
    "/camera/set_parameters": "dynamic_reconfigure/Reconfigure",
    "/control/acquire": TRIGGER,
    "/control/release": TRIGGER,
    "/drive/disable": "std_srvs/SetBool",
    "/rosapi/get_param": "rosapi/GetParam",
    "/rosapi/service_type": "rosapi/ServiceType",
    "/rosapi/services": "rosapi/Services",
    "/rosapi/topic_type": "rosapi/TopicType",
    "/rosapi/topics": "rosapi/Topics",
    "/stop": TRIGGER,
    "/stop/release": TRIGGER,
}


class ServiceTest(EndpointTest):
    async def test_the_answer_has_the_service_as_called_and_the_id(self):
        client = await self.client()
        for service in ("/rosapi/topics", "rosapi/topics"):
            for identity in ("fred", 17):
                await client.send(op="call_service", service=service, id=identity)
                response = await client.next(op="service_response")
                self.assertEqual(response["id"], identity)
                self.assertEqual(response["service"], service)
                self.assertIs(response["result"], True)

    async def test_a_call_without_an_id_is_answered_without_one(self):
        client = await self.client()
        await client.send(op="call_service", service="/rosapi/topics")
        self.assertNotIn("id", await client.next(op="service_response"))

    async def test_an_answer_may_come_as_cbor(self):
        client = await self.client()
        await client.send(op="call_service", service="/rosapi/topics", compression="cbor", id=1)
        message, is_binary = await client.receive()
        self.assertTrue(is_binary)
        self.assertEqual(message["id"], 1)
        self.assertIn("/clock", message["values"]["topics"])

    async def test_an_unknown_service_fails_with_the_reason(self):
        client = await self.client()
        response = await client.call("/nonsense")
        self.assertIs(response["result"], False)
        self.assertIn("/nonsense", response["values"])

    async def test_a_malformed_call_is_an_error_and_fails(self):
        client = await self.client()
        await client.send(
            op="call_service", service="/rosapi/topics", compression="png", id="c"
        )
        messages = await client.until(op="status", id="c", level="error")
        self.assertIn("png", messages[-1]["msg"])
        responses = [message for message in messages if message["op"] == "service_response"]
        self.assertEqual([response["result"] for response in responses], [False])
        self.assertIn("service", (await client.complaint(op="call_service"))["msg"])

    async def test_args_are_an_object_a_list_or_nothing(self):
        client = await self.client()
        for args in ({"topic": "/clock"}, ["/clock"], {"topic": "clock"}):
            self.assertEqual(
                await client.values("/rosapi/topic_type", args), {"type": "rosgraph_msgs/Clock"}
            )
        self.assertTrue((await client.call("/rosapi/topics", []))["result"])
        for args in (["/clock", "surplus"], "/clock", 7, {}, {"topic": 7}):
            with self.subTest(args=args):
                response = await client.call("/rosapi/topic_type", args)
                self.assertIs(response["result"], False)
                self.assertIsInstance(response["values"], str)

    async def test_rosapi_lists_topics_and_services_with_their_types(self):
        client = await self.client()
        topics = await client.values("/rosapi/topics")
        listed = dict(zip(topics["topics"], topics["types"], strict=True))
        self.assertEqual(listed | TOPICS, listed)
        services = (await client.values("/rosapi/services"))["services"]
        self.assertEqual(set(SERVICES) - set(services), set())
        for topic, kind in TOPICS.items():
            answer = await client.values("/rosapi/topic_type", {"topic": topic})
            self.assertEqual(answer, {"type": kind})
        for service, kind in SERVICES.items():
            answer = await client.values("/rosapi/service_type", {"service": service})
            self.assertEqual(answer, {"type": kind})
        for service, field in (("topic_type", "topic"), ("service_type", "service")):
            answer = await client.values(f"/rosapi/{service}", {field: "/nonsense"})
            self.assertEqual(answer, {"type": ""})

    async def test_get_param_answers_in_json(self):
        client = await self.client()
        for args, value in [
            ({"name": "/use_sim_time"}, True),
            ({"name": "use_sim_time", "default": "false"}, True),
            ({"name": "/nonsense"}, None),
            ({"name": "/nonsense", "default": "[1, 2]"}, [1, 2]),
            ({"name": "/nonsense", "default": "\"text\""}, "text"),
            ({"name": "/nonsense", "default": "not JSON"}, "not JSON"),
            ({"name": "/nonsense", "default": "1, 2"}, "1, 2"),
        ]:
            with self.subTest(args=args):
                answer = await client.values("/rosapi/get_param", args)
                self.assertEqual(json.loads(answer["value"]), value)


class ControlTest(EndpointTest):
    async def test_only_one_client_is_in_control(self):
        first, second = await self.client(), await self.client()
        answer = await first.values("/control/acquire")
        self.assertEqual(answer.keys(), {"success", "message"})
        self.assertIs(answer["success"], True)
        self.assertIs((await first.values("control/acquire"))["success"], True)

        refusal = await second.values("/control/acquire")
        self.assertIs(refusal["success"], False)
        self.assertIn("in control", refusal["message"])
        self.assertIs((await second.values("/control/release"))["success"], False)

        self.assertIs((await first.values("/control/release"))["success"], True)
        self.assertIs((await second.values("/control/acquire"))["success"], True)
        self.assertIs((await second.values("/control/release"))["success"], True)

    async def test_control_is_free_when_its_client_leaves(self):
        second = await self.client()
        await second.send(op="subscribe", topic="/rosout")
        async with Client(self.robot.url) as first:
            self.assertIs((await first.values("/control/acquire"))["success"], True)
            first.socket.transport.abort()  # without a good-bye
        while "released control" not in (await second.next(op="publish"))["msg"]["msg"]:
            pass
        self.assertIs((await second.values("/control/acquire"))["success"], True)
        self.assertIs((await second.values("/control/release"))["success"], True)

    async def test_rosout_tells_of_clients_and_control(self):
        watcher = await self.client()
        await watcher.send(op="subscribe", topic="/rosout", type="rosgraph_msgs/Log")
        await watcher.everything_so_far()
        async with Client(self.robot.url) as first, Client(self.robot.url) as second:
            await first.values("/control/acquire")
            await second.values("/control/acquire")
            await first.values("/control/release")
        lines = []
        for text in ("joined", "joined", "took control", "refused", "released", "left", "left"):
            line = await watcher.next(op="publish", topic="/rosout")
            lines.append(line["msg"])
            self.assertIn(text, line["msg"]["msg"])
        for line in lines:
            self.assertEqual(
                line.keys(),
                {"header", "level", "name", "msg", "file", "function", "line", "topics"},
            )
            self.assertEqual(line["header"].keys(), {"seq", "stamp", "frame_id"})
            self.assertEqual(line["header"]["stamp"].keys(), {"secs", "nsecs"})
            self.assertEqual(line["name"], "base")
            self.assertEqual(line["topics"], [])
            self.assertEqual(line["level"], 4 if "refused" in line["msg"] else 2)
        numbers = [line["header"]["seq"] for line in lines]
        self.assertEqual(numbers, list(range(numbers[0], numbers[0] + len(lines))))


class LogTest(EndpointTest):
    async def test_what_clients_cause_beyond_a_few_lines_a_second_is_counted(self):
        watcher = await self.client()
        await watcher.send(op="subscribe", topic="/rosout")
        await watcher.everything_so_far()
        begin = time.monotonic()
        clients = 100
        for _ in range(clients):
            async with Client(self.robot.url):
                pass
        written = left_out = 0
        while written + left_out < 2 * clients:
            text = (await watcher.next(op="publish", topic="/rosout"))["msg"]["msg"]
            count = re.match(r"(\d+) more lines were left out", text)
            left_out += int(count[1]) if count else 0
            written += 0 if count else 1
        self.assertEqual(written + left_out, 2 * clients)
        self.assertGreater(left_out, 0)
        self.assertLessEqual(written, 31 + 5 * (time.monotonic() - begin))


if __name__ == "__main__":
    main()
