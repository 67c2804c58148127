# SPDX-FileCopyrightText: the Quandrel device GUI authors
# SPDX-License-Identifier: BSD-3-Clause

"""Sends quandrel-robot what it must stand, with none of our code in between.

Usage: endpoint_test.py PROGRAM [unittest arguments]
"""

import asyncio
import contextlib
import json
import os
import random
import socket

import cbor2
import websockets

from endpoint import Client, DEADLINE, EndpointTest, main


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
                self.assertEqual((await client.closing())[1], 1009)
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
        self.assertEqual(code, 1008)
        self.assertIn("500", messages[-1]["msg"])
        await witness.values("/rosapi/topics")

    async def flood(self, client):
        with contextlib.suppress(websockets.ConnectionClosed):
            for _ in range(20_000):  # it looks for the answer only then
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


if __name__ == "__main__":
    main()
