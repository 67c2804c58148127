"""Talks to quandrel-robot as any rosbridge client would, with none of our code in between.

Usage: endpoint_test.py PROGRAM [unittest arguments]
"""

import asyncio
import contextlib
import itertools
import json
import os
import random
import re
import resource
import select
import signal
import socket
import struct
import subprocess
import sys
import tempfile
import time
import unittest

import cbor2
import websockets

PROGRAM = ""
DEADLINE = 30.0  # seconds; nothing here should take one of them on an idle machine

TRIGGER = "std_srvs/Trigger"
TOPICS = {
    "/camera/camera_info": "sensor_msgs/CameraInfo",
    "/clock": "rosgraph_msgs/Clock",
    "/cmd_vel": "geometry_msgs/Twist",
    "/drive/disabled": "std_msgs/Bool",
    "/map": "nav_msgs/OccupancyGrid",
    "/odom": "nav_msgs/Odometry",
    "/rosout": "rosgraph_msgs/Log",
    "/scan": "sensor_msgs/LaserScan",
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
}


class Robot:
    """A running quandrel-robot on a free port."""

    def __init__(self, *arguments, **popen):
        self.process = subprocess.Popen(
            [PROGRAM, "--port", "0", *arguments], stdout=subprocess.PIPE, text=True, **popen
        )
        try:
            self.seed = int(self.line_matching(r"seed (\d+)$")[1])
            self.url = self.line_matching(r"listening on (ws://\S+:\d+)$")[1]
        except BaseException:
            self.stop()
            raise
        self.port = int(self.url.rsplit(":", 1)[1])

    def line_matching(self, pattern):
        end = time.monotonic() + DEADLINE
        text = b""
        while not text.endswith(b"\n"):
            ready, _, _ = select.select([self.process.stdout], [], [], end - time.monotonic())
            byte = os.read(self.process.stdout.fileno(), 1) if ready else b""
            if not byte:
                raise AssertionError(f"the robot printed only {text!r}")
            text += byte
        match = re.match(pattern, text.decode().rstrip())
        if not match:
            raise AssertionError(f"the robot printed {text!r}, expected {pattern}")
        return match

    def stop(self, number=signal.SIGTERM):
        """Asks it to end and returns its exit status."""
        self.process.send_signal(number)
        try:
            return self.process.wait(DEADLINE)
        finally:
            self.process.kill()
            self.process.wait()
            self.process.stdout.close()


class Client:
    """One WebSocket connection, and the messages that came over it."""

    def __init__(self, url, **options):
        self.url = url
        self.options = options
        self.ids = itertools.count(1)

    async def __aenter__(self):
        self.socket = await asyncio.wait_for(
            websockets.connect(self.url, max_size=None, compression=None, **self.options), DEADLINE
        )
        return self

    async def __aexit__(self, *_):
        await self.socket.close()

    async def send(self, **message):
        await self.socket.send(json.dumps(message))

    async def receive(self):
        """The next message, and whether it came in a binary frame."""
        data = await asyncio.wait_for(self.socket.recv(), DEADLINE)
        if isinstance(data, bytes):
            return cbor2.loads(data), True
        return json.loads(data), False

    async def until(self, **fields):
        """All messages up to and with the first that has these fields."""
        messages = []
        end = time.monotonic() + DEADLINE
        while time.monotonic() < end:
            message, _ = await self.receive()
            messages.append(message)
            if all(message.get(field) == value for field, value in fields.items()):
                return messages
        raise AssertionError(f"nothing came with {fields}, but {messages[-5:]}")

    async def next(self, **fields):
        return (await self.until(**fields))[-1]

    async def call(self, service, args=None, **fields):
        identity = f"call:{next(self.ids)}"
        if args is not None:
            fields["args"] = args
        await self.send(op="call_service", service=service, id=identity, **fields)
        return await self.next(op="service_response", id=identity)

    async def values(self, service, args=None):
        response = await self.call(service, args)
        assert response["result"] is True, response
        return response["values"]

    async def everything_so_far(self):
        """The messages that the robot sent before it answers a call made now."""
        identity = f"sync:{next(self.ids)}"
        await self.send(op="call_service", service="/rosapi/topics", id=identity)
        return (await self.until(op="service_response", id=identity))[:-1]

    async def complaint(self, **message):
        """The error with which a message is answered."""
        await self.send(**message)
        return await self.next(op="status", level="error")

    async def closing(self):
        """The messages until the robot closed the connection, and the close code."""
        messages = []
        try:
            while True:
                messages.append((await self.receive())[0])
        except websockets.ConnectionClosed:
            return messages, self.socket.close_code


def stamp(message):
    clock = message["msg"]["clock"]
    return clock["secs"] + clock["nsecs"] * 1e-9


class EndpointTest(unittest.IsolatedAsyncioTestCase):
    """One robot for all tests of a class; each test brings its own clients."""

    arguments = []

    @classmethod
    def setUpClass(cls):
        cls.robot = Robot(*cls.arguments)
        cls.addClassCleanup(cls.stop_robot)

    @classmethod
    def stop_robot(cls):
        status = cls.robot.stop()
        if status != 0:
            raise AssertionError(f"the robot ended with the status {status}")

    async def asyncSetUp(self):
        asyncio.get_running_loop().set_debug(False)  # it reports what a busy machine delays

    async def client(self, **options):
        return await self.enterAsyncContext(Client(self.robot.url, **options))

    async def assert_serves(self):
        """A new client is let in and answered."""
        async with Client(self.robot.url) as client:
            self.assertIn("/clock", (await client.values("/rosapi/topics"))["topics"])


class TopicTest(EndpointTest):
    async def test_clock_comes_as_json_with_rising_time(self):
        client = await self.client()
        await client.send(op="subscribe", topic="/clock", type="rosgraph_msgs/Clock")
        stamps = []
        for _ in range(3):
            message, is_binary = await client.receive()
            self.assertFalse(is_binary)
            self.assertEqual(message["op"], "publish")
            self.assertEqual(message["topic"], "/clock")
            self.assertEqual(message["msg"]["clock"].keys(), {"secs", "nsecs"})
            stamps.append(stamp(message))
        self.assertEqual(stamps, sorted(set(stamps)))

    async def test_clock_comes_as_cbor(self):
        client = await self.client()
        await client.send(op="subscribe", topic="/clock", compression="cbor")
        message, is_binary = await client.receive()
        self.assertTrue(is_binary)
        self.assertEqual((message["op"], message["topic"]), ("publish", "/clock"))
        self.assertGreaterEqual(stamp(message), 0)

    async def test_a_request_may_come_as_cbor(self):
        client = await self.client()
        await client.socket.send(cbor2.dumps({"op": "subscribe", "topic": "/clock"}))
        self.assertEqual((await client.next(op="publish"))["topic"], "/clock")

    async def test_a_topic_comes_back_in_the_form_it_was_asked_for(self):
        client = await self.client()
        await client.send(op="subscribe", topic="clock")
        self.assertEqual((await client.next(op="publish"))["topic"], "clock")
        await client.send(op="subscribe", topic="/clock")
        await client.next(op="publish", topic="/clock")
        await client.next(op="publish", topic="clock")

    async def test_throttle_rate_is_the_least_time_between_messages(self):
        client = await self.client()
        await client.send(op="subscribe", topic="/clock", throttle_rate=500)
        stamps = [stamp(await client.next(op="publish")) for _ in range(4)]
        for earlier, later in zip(stamps, stamps[1:]):
            self.assertGreaterEqual(later - earlier, 0.49)

    async def test_queue_length_keeps_messages_for_later(self):
        client = await self.client()
        await client.send(op="subscribe", topic="/clock", throttle_rate=400, queue_length=3)
        stamps = [stamp(await client.next(op="publish")) for _ in range(2)]
        while stamps[-1] - stamps[-2] >= 0.39:  # messages that waited are closer than those sent
            self.assertLess(len(stamps), 30)
            stamps.append(stamp(await client.next(op="publish")))

    async def test_the_fastest_of_several_subscriptions_counts(self):
        client = await self.client()
        await client.send(op="subscribe", topic="/clock", id="slow", throttle_rate=3600000)
        await client.send(op="subscribe", topic="/clock", id="fast")
        for _ in range(3):
            await client.next(op="publish", topic="/clock")
        await client.send(op="unsubscribe", topic="/clock", id="fast")
        await client.everything_so_far()
        await self.pass_clock_ticks(3)
        self.assertEqual(await client.everything_so_far(), [])

    async def test_nothing_comes_after_unsubscribe(self):
        client = await self.client()
        await client.send(op="subscribe", topic="clock", id="a")
        await client.next(op="publish")
        await client.send(op="unsubscribe", topic="clock", id="a")
        await client.everything_so_far()
        await self.pass_clock_ticks(3)
        self.assertEqual(await client.everything_so_far(), [])

    async def test_unsubscribe_without_an_id_ends_all_subscriptions(self):
        client = await self.client()
        for identity in ("a", "b"):
            await client.send(op="subscribe", topic="/clock", id=identity)
        await client.send(op="unsubscribe", topic="/clock")
        await client.everything_so_far()
        await self.pass_clock_ticks(3)
        self.assertEqual(await client.everything_so_far(), [])

    async def test_unfit_subscriptions_are_refused_with_the_reason(self):
        client = await self.client()
        for fields, reason in [
            ({"topic": "/nonsense"}, "/nonsense"),
            ({"topic": "/clock", "type": "std_msgs/String"}, "rosgraph_msgs/Clock"),
            ({"topic": "/clock", "compression": "png"}, "png"),
            ({"topic": "/clock", "compression": "cbor-raw"}, "cbor-raw"),
            ({"topic": "/clock", "compression": 7}, "compression"),
            ({"topic": "/clock", "throttle_rate": -1}, "throttle_rate"),
            ({"topic": "/clock", "throttle_rate": 1.5}, "throttle_rate"),
            ({"topic": "/clock", "throttle_rate": "fast"}, "throttle_rate"),
            ({"topic": "/clock", "throttle_rate": 1e300}, "throttle_rate"),
            ({"topic": "/clock", "queue_length": True}, "queue_length"),
            ({"topic": ["/clock"]}, "topic"),
            ({"topic": "/" + 300 * "x"}, "topic"),
            ({}, "topic"),
        ]:
            with self.subTest(fields=fields):
                status = await client.complaint(op="subscribe", id="s", **fields)
                self.assertEqual(status["id"], "s")
                self.assertIn(reason, status["msg"])

    async def test_a_client_has_at_most_64_subscriptions(self):
        client = await self.client()
        for number in range(64):
            await client.send(
                op="subscribe", topic="/clock", id=number, throttle_rate=3600000
            )
        status = await client.complaint(op="subscribe", topic="/clock", id="one too many")
        self.assertEqual(status["id"], "one too many")
        self.assertIn("64", status["msg"])
        await client.send(op="unsubscribe", topic="/clock", id=5)
        await client.send(op="set_level", level="info")
        await client.send(op="subscribe", topic="/clock", id="one more")
        self.assertEqual((await client.next(op="status", id="one more"))["level"], "info")

    async def test_what_the_robot_publishes_takes_no_message(self):
        client = await self.client()
        for message in [
            {"op": "advertise", "topic": "/clock", "type": "rosgraph_msgs/Clock"},
            {"op": "publish", "topic": "/clock", "msg": {"clock": {"secs": 0, "nsecs": 0}}},
            {"op": "advertise", "topic": "/chatter", "type": "std_msgs/String"},
            {"op": "publish", "topic": "/chatter", "msg": {"data": "hello"}},
            {"op": "publish", "topic": "/clock", "msg": "now"},
            {"op": "publish", "topic": "/clock"},
        ]:
            with self.subTest(message=message):
                status = await client.complaint(id=9, **message)
                self.assertEqual(status["id"], 9)
                self.assertTrue(status["msg"].startswith(message["op"] + ": "), status)

    async def test_unadvertise_of_what_was_not_advertised_is_a_warning(self):
        client = await self.client()
        await client.send(op="set_level", level="warning")
        await client.send(op="unadvertise", topic="/clock", id="u")
        self.assertEqual((await client.next(op="status", id="u"))["level"], "warning")

    async def pass_clock_ticks(self, count):
        async with Client(self.robot.url) as other:
            await other.send(op="subscribe", topic="/clock")
            for _ in range(count):
                await other.next(op="publish", topic="/clock")


class WorldTest(EndpointTest):
    async def test_scans_come_as_json_and_as_cbor(self):
        client = await self.client()
        await client.send(op="subscribe", topic="/scan", type="sensor_msgs/LaserScan")
        scan = (await client.next(op="publish"))["msg"]
        self.assertEqual(
            scan.keys(),
            {"header", "angle_min", "angle_max", "angle_increment", "time_increment",
             "scan_time", "range_min", "range_max", "ranges", "intensities"},
        )
        self.assertEqual(scan["header"]["frame_id"], "laser")
        self.assertEqual(len(scan["ranges"]), 683)
        self.assertTrue(any(scan["range_min"] < length < 5.6 for length in scan["ranges"]))
        self.assertEqual(scan["intensities"], [])

        other = await self.client()
        await other.send(op="subscribe", topic="scan", compression="cbor")
        message, is_binary = await other.receive()
        self.assertTrue(is_binary)
        ranges = message["msg"]["ranges"]
        self.assertEqual(ranges.tag, 85)  # RFC 8746: float32, little-endian
        lengths = struct.unpack("<683f", ranges.value)
        while (scan := (await client.next(op="publish"))["msg"])["header"] != (
            message["msg"]["header"]
        ):
            pass
        self.assertEqual(list(lengths), scan["ranges"])

    async def test_stamps_are_those_of_the_clock(self):
        client = await self.client()
        for topic in ("/clock", "/odom", "/tf", "/scan", "/camera/camera_info"):
            await client.send(op="subscribe", topic=topic)
        now = stamp(await client.next(topic="/clock"))
        for topic in ("/odom", "/tf", "/scan", "/camera/camera_info"):
            msg = (await client.next(topic=topic))["msg"]
            time_stamp = (msg["transforms"][0] if topic == "/tf" else msg)["header"]["stamp"]
            delay = time_stamp["secs"] + time_stamp["nsecs"] * 1e-9 - now
            self.assertGreater(delay, -0.1, topic)
            self.assertLess(delay, 5.0, topic)

    async def test_the_last_message_of_a_state_comes_at_once(self):
        client = await self.client()
        await client.send(op="subscribe", topic="/map")
        await client.send(op="subscribe", topic="/drive/disabled")
        messages = await client.everything_so_far()
        self.assertEqual([message["topic"] for message in messages], ["/map", "/drive/disabled"])
        grid = messages[0]["msg"]
        self.assertEqual(len(grid["data"]), grid["info"]["width"] * grid["info"]["height"])
        self.assertEqual(set(grid["data"]), {0, 100})
        self.assertEqual(messages[1]["msg"], {"data": False})

    async def test_a_velocity_command_is_obeyed_for_half_a_second(self):
        client = await self.client()
        await client.values("/control/acquire")
        await client.send(op="subscribe", topic="/odom")
        await client.send(op="publish", topic="/cmd_vel", msg={"angular": {"z": 1.5}})
        stamps = []
        velocity = 0.0
        while not stamps or velocity > 1.3:  # by itself, the robot turns more slowly
            msg = (await client.next(topic="/odom"))["msg"]
            velocity = msg["twist"]["twist"]["angular"]["z"]
            if velocity > 1.3:
                self.assertAlmostEqual(velocity, 1.5, 3)
                time_stamp = msg["header"]["stamp"]
                stamps.append(time_stamp["secs"] + time_stamp["nsecs"] * 1e-9)
        self.assertLessEqual(stamps[-1] - stamps[0], 0.5)
        complaint = await client.complaint(op="publish", topic="/cmd_vel", msg={"linear": 1}, id=1)
        self.assertIn("linear", complaint["msg"])
        await client.values("/control/release")


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


class StatusTest(EndpointTest):
    async def test_every_other_operation_is_an_error_that_names_it(self):
        client = await self.client()
        for operation in (
            "fragment", "png", "advertise_service", "unadvertise_service", "send_action_goal",
            "auth", "set_status_level", "fly", "Subscribe", "service_response",
        ):
            with self.subTest(operation=operation):
                status = await client.complaint(op=operation, id="x", data="", num=0, total=1)
                self.assertEqual(status["id"], "x")
                self.assertIn(operation, status["msg"])

    async def test_a_status_from_a_client_is_ignored(self):
        client = await self.client()
        await client.send(op="status", level="error", msg="I do not like it", id="s")
        self.assertEqual(await client.everything_so_far(), [])

    async def test_set_level_decides_which_status_messages_come(self):
        client = await self.client()
        expected = {"none": [], "error": ["error"], "warning": ["error", "warning"],
                    "info": ["info", "error", "warning", "info"]}
        for level, levels in expected.items():
            with self.subTest(level=level):
                await client.send(op="set_level", level=level)
                await client.send(op="fly")
                await client.send(op="unsubscribe", topic="/clock")
                await client.send(op="subscribe", topic="/rosout")
                messages = await client.everything_so_far()
                statuses = [message for message in messages if message["op"] == "status"]
                self.assertEqual([status["level"] for status in statuses], levels)

    async def test_only_errors_come_before_set_level(self):
        client = await self.client()
        await client.send(op="unsubscribe", topic="/clock")
        await client.send(op="subscribe", topic="/rosout")
        self.assertEqual(await client.everything_so_far(), [])

    async def test_an_unknown_level_is_an_error_and_changes_nothing(self):
        client = await self.client()
        for level in ("loud", "", 3, None):
            await client.complaint(op="set_level", level=level, id="l")
        await client.send(op="subscribe", topic="/rosout")
        self.assertEqual(await client.everything_so_far(), [])

    async def test_limits_that_are_lowered_are_a_warning(self):
        client = await self.client()
        await client.send(op="set_level", level="warning")
        await client.send(op="subscribe", topic="/rosout", queue_length=1000, id="q")
        self.assertIn("100", (await client.next(op="status", id="q"))["msg"])
        await client.send(op="subscribe", topic="/rosout", fragment_size=10, id="f")
        self.assertIn("fragment_size", (await client.next(op="status", id="f"))["msg"])


class MalformedTest(EndpointTest):
    async def test_a_malformed_message_is_an_error_and_the_robot_goes_on(self):
        client = await self.client()
        for data in [
            "", " ", "hello", "{", "[]", "7", "null", '"op"', "{}", '{"op": 7}', '{"op": null}',
            '{"op": ""}', '{"op": "fly"', '{"op": "fly"}}', '{"op": "fly"}{"op": "fly"}',
            '{"op": "fly", "op": "swim"}', "{'op': 'fly'}", '{"op": "fly",}', '{"topic": "/clock"}',
            '{"op": "subscribe", "topic": "/clock", "id": {}}',
            '{"op": "subscribe", "topic": "/clock", "id": [1]}',
            '{"op": "subscribe", "topic": "/clock", "id": true}',
            json.dumps({"op": "subscribe", "topic": "/clock", "id": 300 * "x"}),
            json.dumps({"op": 300 * "x"}),
            '{"op": "fly", "x": ' + 5000 * "[" + 5000 * "]" + "}",
            b"", b"\x00", b"\xff", b"\xa1", b"\x9f", cbor2.dumps([]), cbor2.dumps({}),
            cbor2.dumps({"op": 7}), cbor2.dumps({7: "op"}), cbor2.dumps({"op": "fly"})[:-1],
            cbor2.dumps({"op": "fly"}) + b"\x00", b"\xbf\x62op\x63fly", 5000 * b"\x81",
            b"\xbb\xff\xff\xff\xff\xff\xff\xff\xff", b"\x5b\x7f\xff\xff\xff\xff\xff\xff\xff",
        ]:
            with self.subTest(data=data[:60]):
                await client.socket.send(data)
                self.assertEqual([message["level"] for message in await client.everything_so_far()],
                                 ["error"])

    async def test_noise_does_not_end_the_robot(self):
        seed = int(os.environ.get("TEST_SEED", random.SystemRandom().getrandbits(32)))
        print(f"TEST_SEED={seed}", flush=True)
        source = random.Random(seed)
        models = [
            {"op": "subscribe", "topic": "/clock", "id": 1, "throttle_rate": 5, "queue_length": 2},
            {"op": "unsubscribe", "topic": "/clock"},
            {"op": "call_service", "service": "/rosapi/get_param", "args": {"name": "x"}},
            {"op": "publish", "topic": "/clock", "msg": {"clock": {"secs": 0, "nsecs": 0}}},
            {"op": "set_level", "level": "info"},
        ]
        for _ in range(4):
            async with Client(self.robot.url) as client:
                for _ in range(200):  # well below the rate limit's burst
                    model = source.choice(models)
                    if source.random() < 0.5:
                        noise = bytearray(cbor2.dumps(model))
                    else:
                        noise = bytearray(json.dumps(model).encode())
                    for _ in range(source.randint(1, 4)):
                        noise[source.randrange(len(noise))] = source.randrange(256)
                    if source.random() < 0.5:
                        await client.socket.send(bytes(noise))
                    else:
                        await client.socket.send(noise.decode("latin-1"))
                await client.everything_so_far()
        await self.assert_serves()

    async def test_text_that_is_not_utf8_ends_that_client_only(self):
        witness = await self.client()
        client = await self.client()
        await client.socket.write_frame(True, 0x1, b'{"op": "\xff"}')
        self.assertEqual((await client.closing())[1], 1007)
        await witness.values("/rosapi/topics")

    async def test_a_message_too_large_ends_that_client_only(self):
        witness = await self.client()
        await witness.send(op="subscribe", topic="/rosout")
        for is_fragmented in (False, True):
            with self.subTest(is_fragmented=is_fragmented):
                client = await self.client()
                text = json.dumps({"op": "fly", "x": 300 * 1024 * "x"})
                parts = [text[:200000], text[200000:]]
                with contextlib.suppress(websockets.ConnectionClosed):
                    await client.socket.send(parts if is_fragmented else text)
                # 1006 if the rest of the message was on its way when the robot hung up
                self.assertIn((await client.closing())[1], (1009, 1006))
                host, port = client.socket.local_address
                leave = f"({host}:{port}) left: "
                while leave not in (line := await witness.next(op="publish"))["msg"]["msg"]:
                    pass
                self.assertNotIn("did not answer", line["msg"]["msg"])
                await witness.values("/rosapi/topics")

    async def test_the_largest_message_is_taken(self):
        client = await self.client()
        message = {"op": "fly", "x": ""}
        message["x"] = (256 * 1024 - len(json.dumps(message))) * "x"
        self.assertIn("fly", (await client.complaint(**message))["msg"])

    async def test_a_flood_ends_that_client_only(self):
        witness = await self.client()
        client = await self.client()
        flood = asyncio.create_task(self.flood(client))
        messages, code = await client.closing()
        await flood
        self.assertIn(code, (1008, 1006))
        if code == 1008:
            self.assertIn("500", messages[-1]["msg"])
        await witness.values("/rosapi/topics")

    async def flood(self, client):
        with contextlib.suppress(websockets.ConnectionClosed):
            for _ in range(100_000):
                await client.send(op="status", level="info", msg="")

    async def test_a_client_that_does_not_read_disturbs_nobody(self):
        lazy = socket.create_connection(("127.0.0.1", self.robot.port), DEADLINE)
        self.addCleanup(lazy.close)
        lazy.sendall(
            b"GET / HTTP/1.1\r\nHost: localhost\r\nUpgrade: websocket\r\nConnection: Upgrade\r\n"
            b"Sec-WebSocket-Version: 13\r\nSec-WebSocket-Key: AAAAAAAAAAAAAAAAAAAAAA==\r\n\r\n"
        )
        self.assertIn(b"101", lazy.recv(4096))
        payload = json.dumps({"op": "call_service", "service": "/rosapi/services"}).encode()
        frame = bytes([0x81, 0x80 | len(payload), 0, 0, 0, 0]) + payload  # masked with zeros
        await asyncio.wait_for(asyncio.to_thread(lazy.sendall, 900 * frame), DEADLINE)
        witness = await self.client()
        await witness.send(op="subscribe", topic="/clock")
        for _ in range(5):
            await witness.next(op="publish", topic="/clock")
            await witness.values("/rosapi/topics")

    async def test_an_unfinished_handshake_disturbs_nobody(self):
        for greeting in (b"", b"GET / HTTP/1.1\r\nHost:", b"\x16\x03\x01", b"nonsense\r\n\r\n"):
            peer = socket.create_connection(("127.0.0.1", self.robot.port), DEADLINE)
            self.addCleanup(peer.close)
            peer.sendall(greeting)
            await self.assert_serves()


class OriginTest(EndpointTest):
    arguments = ["--allow-origin", "http://localhost:8000", "--allow-origin", "https://a.example"]

    async def test_pages_of_other_origins_are_refused(self):
        for origin in (
            "http://evil.example", "http://localhost", "http://localhost:80000", "null",
            "https://localhost:8000", "http://localhost:8000.evil.example", self.robot.url,
            "http://127.0.0.1:8000",
        ):
            with self.subTest(origin=origin):
                with self.assertRaises(websockets.InvalidStatusCode) as refusal:
                    await self.client(origin=origin)
                self.assertEqual(refusal.exception.status_code, 403)

    async def test_pages_of_named_origins_are_let_in(self):
        for origin in ("http://localhost:8000", "https://a.example"):
            client = await self.client(origin=origin)
            await client.values("/rosapi/topics")

    async def test_programs_without_an_origin_are_let_in(self):
        await self.assert_serves()


class CrowdTest(EndpointTest):
    async def test_at_most_16_clients_are_served(self):
        clients = [await self.client() for _ in range(16)]
        late = await self.client()
        messages, code = await late.closing()
        self.assertEqual(code, 1008)
        self.assertEqual([message["level"] for message in messages], ["error"])
        self.assertIn("16", messages[0]["msg"])
        for client in clients:
            await client.values("/rosapi/topics")
        await clients[0].send(op="subscribe", topic="/rosout")
        await clients[1].socket.close()
        while "left" not in (await clients[0].next(op="publish"))["msg"]["msg"]:
            pass
        await self.assert_serves()


class ProgramTest(unittest.IsolatedAsyncioTestCase):
    def run_robot(self, *arguments):
        return subprocess.run(
            [PROGRAM, *arguments], capture_output=True, text=True, timeout=DEADLINE, check=False
        )

    def test_signals_end_it_cleanly(self):
        for number in (signal.SIGINT, signal.SIGTERM):
            self.assertEqual(Robot().stop(number), 0)

    async def test_it_takes_leave_of_its_clients(self):
        robot = Robot()
        async with Client(robot.url) as client:
            await client.values("/rosapi/topics")
            self.assertEqual(await asyncio.to_thread(robot.stop), 0)
            messages, code = await client.closing()
        self.assertEqual(code, 1001)
        self.assertEqual([message["op"] for message in messages], ["status"])

    def test_the_seed_is_printed(self):
        robot = Robot("--seed", "4294967295")
        robot.stop()
        self.assertEqual(robot.seed, 4294967295)
        seeds = set()
        for _ in range(2):
            robot = Robot()
            robot.stop()
            seeds.add(robot.seed)
        self.assertEqual(len(seeds), 2)  # wrong once in four thousand million runs

    async def test_the_address_may_be_a_name_or_ipv6(self):
        for address, url in (("localhost", "ws://localhost:"), ("[::1]", "ws://[::1]:")):
            robot = Robot("--address", address)
            self.addCleanup(robot.stop)
            self.assertTrue(robot.url.startswith(url), robot.url)
            async with Client(robot.url) as client:
                await client.values("/rosapi/topics")

    def test_it_listens_on_loopback_only(self):
        robot = Robot()
        self.addCleanup(robot.stop)
        with open("/proc/net/tcp", encoding="ascii") as table:
            listening = [line.split()[1] for line in table if line.split()[3] == "0A"]
        self.assertIn(f"0100007F:{robot.port:04X}", listening)

    def test_a_port_in_use_is_an_error_that_says_what_to_do(self):
        robot = Robot()
        self.addCleanup(robot.stop)
        result = self.run_robot("--port", str(robot.port))
        self.assertEqual(result.returncode, 1)
        self.assertIn(f"127.0.0.1:{robot.port}", result.stderr)
        self.assertIn("another", result.stderr)
        self.assertEqual(result.stdout, "")

    def test_bad_arguments_are_errors_that_name_them(self):
        for arguments in (
            ["--port", "65536"], ["--port", "-1"], ["--port", "nine"], ["--port", ""],
            ["--seed", "x"], ["--seed", "4294967296"], ["--address", "a:b:c"],
            ["--rate", "2"], ["--address", "::1:9090"], ["--allow-origin", "localhost"],
            ["--allow-origin", "http://localhost/page"], ["--fly", ""], ["surplus"],
        ):
            with self.subTest(arguments=arguments):
                result = self.run_robot(*arguments)
                self.assertEqual(result.returncode, 2)
                self.assertIn(arguments[0].lstrip("-"), result.stderr)
                self.assertRegex(result.stderr,
                                 r"^quandrel-robot: .*\nTry 'quandrel-robot --help'\.\n$")
                self.assertEqual(result.stdout, "")

    def test_help_and_version_are_printed(self):
        result = self.run_robot("--help")
        self.assertEqual(result.returncode, 0)
        for option in ("--address", "--port", "--seed", "--allow-origin", "--laser-log", "--rate",
                       "--help", "--version"):
            self.assertIn(option, result.stdout)
        result = self.run_robot("--version")
        self.assertEqual(result.returncode, 0)
        self.assertRegex(result.stdout, r"^quandrel-robot \d+\.\d+\.\d+\n$")

    async def test_a_recording_takes_the_lasers_place(self):
        with tempfile.NamedTemporaryFile("w", suffix=".log") as file:
            for second in (1, 2):
                file.write(f"FLASER 3 {second} 2 3 0 0 0 0 0 0 {second} host {second}\n")
            file.write("FLASER 3 nonsense\n")
            file.flush()
            robot = Robot("--laser-log", file.name, "--rate", "20", stderr=subprocess.PIPE)
            self.addCleanup(robot.process.stderr.close)
            self.addCleanup(robot.stop)
            self.assertIn(f"{file.name}:3", robot.process.stderr.readline())
        async with Client(robot.url) as client:
            await client.send(op="subscribe", topic="/scan")
            scans = [(await client.next(op="publish"))["msg"] for _ in range(4)]
        self.assertEqual([scan["ranges"] for scan in scans], 2 * [[1, 2, 3], [2, 2, 3]])
        self.assertEqual([scan["header"]["seq"] for scan in scans], [0, 1, 2, 3])
        self.assertEqual({scan["header"]["frame_id"] for scan in scans}, {"laser"})

    def test_a_file_without_a_scan_is_an_error_that_names_it(self):
        for name in ("/dev/null", "/nonexistent.log"):
            result = self.run_robot("--laser-log", name)
            self.assertEqual(result.returncode, 1)
            self.assertIn(name, result.stderr)
            self.assertEqual(result.stdout, "")

    async def test_it_recovers_when_there_were_too_many_connections(self):
        files = 30

        def limit_files():
            resource.setrlimit(resource.RLIMIT_NOFILE, (files, files))

        robot = Robot(preexec_fn=limit_files)
        self.addCleanup(robot.stop)
        async with Client(robot.url) as client:
            # Let the world run first: where a sanitizer meets a class for the first time it opens
            # a pipe, and without one takes the object for a broken one.
            await client.send(op="subscribe", topic="/scan")
            await client.next(op="publish")
        # All at once: only where its first connections are too many does Qt stop accepting.
        robot.process.send_signal(signal.SIGSTOP)
        os.waitpid(robot.process.pid, os.WUNTRACED)
        crowd = [
            socket.create_connection(("127.0.0.1", robot.port), DEADLINE) for _ in range(40)
        ]
        robot.process.send_signal(signal.SIGCONT)
        end = time.monotonic() + DEADLINE
        while len(os.listdir(f"/proc/{robot.process.pid}/fd")) < files:
            self.assertLess(time.monotonic(), end)
            await asyncio.sleep(0.01)
        for peer in crowd:
            peer.close()
        async with Client(robot.url) as client:
            await client.values("/rosapi/topics")


if __name__ == "__main__":
    PROGRAM = sys.argv.pop(1)
    unittest.main(verbosity=2)
