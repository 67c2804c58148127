# SPDX-FileCopyrightText: the Quandrel device GUI authors
# SPDX-License-Identifier: BSD-3-Clause

"""Subscribes to the topics of quandrel-robot, and publishes there, with none of our code in between.

Usage: topics_test.py PROGRAM [unittest arguments]
"""

import math
import struct

import cbor2

from endpoint import Client, EndpointTest, main, stamp


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

    async def test_a_type_may_be_spelt_as_in_ros_2(self):
        client = await self.client()
        await client.send(op="subscribe", topic="/clock", type="rosgraph_msgs/msg/Clock")
        self.assertEqual((await client.next(op="publish"))["topic"], "/clock")

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
        await client.send(op="subscribe", topic="/clock", throttle_rate=400, queue_length=20)
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
            ({"topic": "/clock", "type": "std_msgs/msg/Clock"}, "rosgraph_msgs/Clock"),
            ({"topic": "/clock", "compression": "png"}, "png"),
            ({"topic": "/clock", "compression": "cbor-row"}, "cbor-row"),
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

    async def test_cbor_raw_is_the_message_as_ROS_serializes_it(self):
        client = await self.client()
        # As viewers ask: without a type, and with a topic that another subscription has as JSON.
        await client.send(op="subscribe", topic="/clock", id="json")
        await client.send(op="subscribe", topic="/clock", id="raw", compression="cbor-raw")
        is_binary = False
        while not is_binary:
            message, is_binary = await client.receive()
        self.assertEqual(message["topic"], "/clock")
        self.assertEqual(set(message["msg"]), {"secs", "nsecs", "bytes"})
        self.assertEqual(
            struct.unpack("<II", message["msg"]["bytes"]),
            (message["msg"]["secs"], message["msg"]["nsecs"]),
        )

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
        while (scan := (await client.next(op="publish"))["msg"])["header"] != (
            message["msg"]["header"]
        ):
            pass
        # JSON has the digits of a float32, which are fewer than those of the double read here.
        self.assertEqual(struct.pack("<683f", *scan["ranges"]), ranges.value)

    async def test_no_stamp_is_ahead_of_the_clock(self):
        client = await self.client()
        topics = {"/arm/state", "/camera/camera_info", "/joint_states", "/odom", "/rosout",
                  "/scan", "/tf"}
        for topic in ("/clock", *topics):
            await client.send(op="subscribe", topic=topic)
        now = stamp(await client.next(topic="/clock"))
        seen = {topic: 0 for topic in topics}
        while min(seen.values()) < 5:
            message, _ = await client.receive()
            if message["topic"] == "/clock":
                now = stamp(message)
                if seen["/rosout"] < 5:  # between two steps
                    async with Client(self.robot.url):
                        pass
                continue
            msg = message["msg"]
            time_stamp = (msg["transforms"] if "transforms" in msg else [msg])[0]["header"]["stamp"]
            delay = now - time_stamp["secs"] - time_stamp["nsecs"] * 1e-9
            self.assertGreater(delay, -1e-6, message["topic"])
            self.assertLess(delay, 1.5, message["topic"])  # a step is never longer than 1 s
            seen[message["topic"]] += 1

    async def test_the_last_message_of_a_state_comes_at_once(self):
        client = await self.client()
        await client.send(op="subscribe", topic="/map")
        await client.send(op="subscribe", topic="/drive/disabled")
        await client.send(op="subscribe", topic="/footprint")
        messages = await client.everything_so_far()
        self.assertEqual(
            [message["topic"] for message in messages], ["/map", "/drive/disabled", "/footprint"]
        )
        grid = messages[0]["msg"]
        self.assertEqual(len(grid["data"]), grid["info"]["width"] * grid["info"]["height"])
        self.assertEqual(set(grid["data"]), {0, 100})
        self.assertEqual(messages[1]["msg"], {"data": False})
        footprint = messages[2]["msg"]
        self.assertEqual(footprint["header"]["frame_id"], "base_link")
        for point in footprint["polygon"]["points"]:
            self.assertAlmostEqual(math.hypot(point["x"], point["y"]), 0.25)

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


if __name__ == "__main__":
    main()
