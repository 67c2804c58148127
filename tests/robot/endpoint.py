# SPDX-FileCopyrightText: the Quandrel device GUI authors
# SPDX-License-Identifier: BSD-3-Clause

"""quandrel-robot and rosbridge clients that are not ours, for the tests beside this file."""

import asyncio
import itertools
import json
import os
import re
import select
import signal
import subprocess
import sys
import time
import unittest

import cbor2
import websockets

DEADLINE = 30.0  # seconds; nothing here should take one of them on an idle machine


class Robot:
    """A running quandrel-robot on a free port."""

    program = ""  # the executable

    def __init__(self, *arguments, **popen):
        self.process = subprocess.Popen(
            [self.program, "--port", "0", *arguments], stdout=subprocess.PIPE, text=True, **popen
        )
        try:
            self.what = self.line_matching(r"(seed \d+|playing .+)$")[1]
            self.url = self.line_matching(r"listening on (ws://\S+:\d+)$")[1]
        except BaseException:
            self.stop()
            raise
        self.port = int(self.url.rsplit(":", 1)[1])

    @property
    def seed(self):
        return int(self.what.split()[1])

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


def main():
    """Runs the tests of the script that was started."""
    Robot.program = sys.argv.pop(1)
    unittest.main(verbosity=2)
