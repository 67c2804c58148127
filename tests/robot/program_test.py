# SPDX-FileCopyrightText: the Quandrel device GUI authors
# SPDX-License-Identifier: BSD-3-Clause

"""Runs quandrel-robot as a person does.

Usage: program_test.py PROGRAM [unittest arguments]
"""

import asyncio
import os
import resource
import signal
import socket
import struct
import subprocess
import tempfile
import time
import unittest

from endpoint import Client, DEADLINE, Robot, main


def bag_fields(**fields):
    texts = [name.encode() + b"=" + value for name, value in fields.items()]
    return b"".join(struct.pack("<I", len(text)) + text for text in texts)


def bag_record(data, **fields):
    header = bag_fields(**fields)
    return struct.pack("<I", len(header)) + header + struct.pack("<I", len(data)) + data


def cut_bag(topic, texts):
    """A bag with a text each 10 ms, as a recorder leaves it that is killed in its first chunk."""
    number = struct.Struct("<I").pack
    definition = bag_fields(type=b"std_msgs/String", md5sum=b"992ce8a1687cec8c8bd883ec73ca41d1",
                            message_definition=b"string data\n")
    bag = b"#ROSBAG V2.0\n"
    bag += bag_record(b" " * 4000, op=b"\3", index_pos=8 * b"\0", conn_count=number(0),
                      chunk_count=number(0))
    bag += bag_record(b"", op=b"\5", compression=b"none", size=number(0))
    bag += bag_record(definition, op=b"\7", conn=number(0), topic=topic.encode())
    for index, text in enumerate(texts):
        bag += bag_record(number(len(text)) + text.encode(), op=b"\2", conn=number(0),
                          time=number(1600000000) + number(index * 10_000_000))
    return bag


class ProgramTest(unittest.IsolatedAsyncioTestCase):
    def run_robot(self, *arguments):
        return subprocess.run(
            [Robot.program, *arguments], capture_output=True, text=True, timeout=DEADLINE, check=False
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
                       "--play", "--loop", "--start", "--help", "--version"):
            self.assertIn(option, result.stdout)
        result = self.run_robot("--version")
        self.assertEqual(result.returncode, 0)
        self.assertRegex(result.stdout, r"^quandrel-robot \d+\.\d+\.\d+\n$")

    async def test_a_bag_takes_the_robots_place(self):
        with tempfile.NamedTemporaryFile(suffix=".bag") as file:
            file.write(cut_bag("/chatter", ["one", "two"]) + b"half a record")
            file.flush()
            robot = Robot("--play", file.name, "--loop", stderr=subprocess.PIPE)
            self.addCleanup(robot.process.stderr.close)
            self.addCleanup(robot.stop)
            self.assertEqual(robot.what, f"playing {file.name}")
            self.assertIn("cut off", robot.process.stderr.readline())
        async with Client(robot.url) as client:
            await client.send(op="subscribe", topic="/chatter")
            texts = [(await client.next(op="publish"))["msg"]["data"] for _ in range(4)]
        self.assertEqual(texts, 2 * ["one", "two"])

    def test_a_bag_that_cannot_be_played_is_an_error_that_names_it(self):
        with tempfile.NamedTemporaryFile(suffix=".bag") as file:
            file.write(b"#ROSBAG V2.0\n")
            file.flush()
            for name in (file.name, "/nowhere/missing.bag"):
                result = self.run_robot("--port", "0", "--play", name)
                self.assertEqual(result.returncode, 1)
                self.assertTrue(result.stderr.startswith(f"quandrel-robot: {name}: "), result.stderr)
                self.assertEqual(result.stdout, "")

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
    main()
