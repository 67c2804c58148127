#!/usr/bin/env python3
# SPDX-FileCopyrightText: the Quandrel device GUI authors
# SPDX-License-Identifier: BSD-3-Clause
"""Measures the workbench beside rviz, both with the same scans on the same virtual screen: the time
from their start until the first scan is seen, and their processor time with many ranges.

README.md says what it needs."""

import argparse
import asyncio
import contextlib
import json
import math
import mmap
import os
import pathlib
import signal
import socket
import statistics
import struct
import subprocess
import sys
import tempfile
import threading
import time

import cbor2
import websockets

RAY_COLOUR = (0xE8, 0x6A, 0x17)  # the workbench's; rviz is set to the same
PATIENCE = 60  # seconds
CONNECT_BUTTON = ("17", "36")  # in the window
RVIZ = """
Visualization Manager:
  Class: ""
  Displays:
    - Class: rviz/LaserScan
      Name: LaserScan
      Enabled: true
      Value: true
      Topic: /scan
      Style: Points
      Size (Pixels): 2
      Color Transformer: FlatColor
      Color: 232; 106; 23
      Alpha: 1
  Enabled: true
  Global Options:
    Fixed Frame: laser
    Frame Rate: 30
  Tools:
    - Class: rviz/MoveCamera
  Value: true
  Views:
    Current:
      Class: rviz/TopDownOrtho
      Name: Current View
      Scale: 40
"""


def free_port():
    with socket.socket() as probe:
        probe.bind(("127.0.0.1", 0))
        return probe.getsockname()[1]


def wait_for(condition, what):
    end = time.monotonic() + PATIENCE
    while not (found := condition()):
        if time.monotonic() > end:
            sys.exit(f"{what}: nothing within {PATIENCE} s")
        time.sleep(0.002)
    return found


class Screen:
    """A virtual screen whose pixels are in a file."""

    def __init__(self, folder):
        read, write = os.pipe()
        self._server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(write), "-screen", "0", "1600x1000x24", "-noreset", "-fbdir", folder],
            pass_fds=[write], stderr=subprocess.DEVNULL)
        os.close(write)
        with os.fdopen(read) as number:
            self.name = ":" + number.readline().strip()
        with open(pathlib.Path(folder) / "Xvfb_screen0", "rb") as pixels:
            self._pixels = mmap.mmap(pixels.fileno(), 0, prot=mmap.PROT_READ)

    def shows(self, colour):
        return self._pixels.find(bytes(reversed(colour))) >= 0

    def close(self):
        self._pixels.close()
        self._server.terminate()
        self._server.wait()


class Scans:
    """What both programs are sent: ranges like those of a room that turns."""

    def __init__(self, ranges, rate):
        self.count, self.rate, self.number = ranges, rate, 0

    def next(self):
        self.number += 1
        turn = self.number / 50
        return [3 + math.sin(7 * i / self.count + turn) for i in range(self.count)]

    @property
    def increment(self):
        return 2 * math.pi / self.count


class RosSource:
    """A ROS master and a node that publishes the scans, in a process of its own."""

    def __init__(self, scans):
        self.port = free_port()
        self.environment = {"ROS_MASTER_URI": f"http://127.0.0.1:{self.port}",
                            "ROS_HOSTNAME": "127.0.0.1"}
        environment = {**os.environ, **self.environment}
        quiet = {"stdout": subprocess.DEVNULL, "stderr": subprocess.DEVNULL}
        self._master = subprocess.Popen(["rosmaster", "--core", "-p", str(self.port)],
                                        env=environment, **quiet)
        wait_for(lambda: socket.socket().connect_ex(("127.0.0.1", self.port)) == 0, "rosmaster")
        self._node = subprocess.Popen([sys.executable, __file__, "--publish", str(scans.count),
                                       str(scans.rate)], env=environment, **quiet)

    def close(self):
        for process in (self._node, self._master):
            process.terminate()
            process.wait()


def publish(count, rate):
    """The node of RosSource."""
    import rospy
    from sensor_msgs.msg import LaserScan

    scans = Scans(count, rate)
    rospy.init_node("scans")
    publisher = rospy.Publisher("/scan", LaserScan, queue_size=1)
    clock = rospy.Rate(rate)
    while not rospy.is_shutdown():
        message = LaserScan(angle_min=-math.pi, angle_max=math.pi, angle_increment=scans.increment,
                            range_min=0.1, range_max=30, ranges=scans.next())
        message.header.stamp = rospy.Time.now()
        message.header.frame_id = "laser"
        publisher.publish(message)
        clock.sleep()


class RosbridgeSource:
    """A rosbridge server with the scans as CBOR, and where the robot is, on a thread of its own."""

    TYPES = {"/scan": "sensor_msgs/LaserScan", "/odom": "nav_msgs/Odometry", "/tf": "tf2_msgs/TFMessage"}

    def __init__(self, scans):
        self.port = free_port()
        self._scans = scans
        self._loop = asyncio.new_event_loop()
        self._thread = threading.Thread(target=self._loop.run_until_complete, args=[self._serve()])
        self._thread.start()
        wait_for(lambda: socket.socket().connect_ex(("127.0.0.1", self.port)) == 0, "server")

    async def _serve(self):
        self._end = asyncio.Event()
        async with websockets.serve(self._talk, "127.0.0.1", self.port, max_size=None):
            await self._end.wait()

    async def _talk(self, client):
        followed = set()
        sending = asyncio.create_task(self._send(client, followed))
        with contextlib.suppress(websockets.ConnectionClosed):
            async for text in client:
                message = json.loads(text)
                if message["op"] == "subscribe":
                    followed.add(message["topic"])
                elif message["op"] == "call_service":
                    await client.send(cbor2.dumps(self._answer(message)))
        sending.cancel()

    def _answer(self, call):
        values = {"success": True, "message": ""}
        if call["service"] == "/rosapi/topics":
            values = {"topics": list(self.TYPES), "types": list(self.TYPES.values())}
        return {"op": "service_response", "id": call.get("id", ""), "service": call["service"],
                "values": values, "result": True}

    async def _send(self, client, followed):
        while True:
            begin = time.monotonic()
            for topic in followed & set(self.TYPES):
                await client.send(cbor2.dumps({"op": "publish", "topic": topic,
                                               "msg": self._message(topic)}))
            await asyncio.sleep(max(0, begin + 1 / self._scans.rate - time.monotonic()))

    def _message(self, topic):
        header = self._header("odom")
        pose = {"position": {"x": 0.0, "y": 0.0, "z": 0.0},
                "orientation": {"x": 0.0, "y": 0.0, "z": 0.0, "w": 1.0}}
        if topic == "/odom":
            still = {"x": 0.0, "y": 0.0, "z": 0.0}
            return {"header": header, "child_frame_id": "base_link",
                    "pose": {"pose": pose, "covariance": [0.0] * 36},
                    "twist": {"twist": {"linear": still, "angular": still},
                              "covariance": [0.0] * 36}}
        if topic == "/tf":
            return {"transforms": [{"header": self._header(parent), "child_frame_id": child,
                                    "transform": {"translation": pose["position"],
                                                  "rotation": pose["orientation"]}}
                                   for parent, child in (("odom", "base_link"),
                                                         ("base_link", "laser"))]}
        ranges = self._scans.next()
        return {"header": self._header("laser"), "angle_min": -math.pi, "angle_max": math.pi,
                "angle_increment": self._scans.increment, "time_increment": 0.0, "scan_time": 0.0,
                "range_min": 0.1, "range_max": 30.0, "intensities": [],
                "ranges": cbor2.CBORTag(85, struct.pack(f"<{len(ranges)}f", *ranges))}

    @staticmethod
    def _header(frame):
        now = time.time()
        return {"seq": 0, "stamp": {"secs": int(now), "nsecs": int(now % 1 * 1e9)},
                "frame_id": frame}

    def close(self):
        self._loop.call_soon_threadsafe(self._end.set)
        self._thread.join()


class Program:
    """A program on the screen, in a folder of its own, until it is closed."""

    def __init__(self, command, screen, folder, environment):
        self.begin = time.monotonic()
        self._process = subprocess.Popen(
            command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, start_new_session=True,
            env={**os.environ, "DISPLAY": screen.name, "QT_QPA_PLATFORM": "xcb", "HOME": folder,
                 "XDG_CONFIG_HOME": folder + "/config", "XDG_DATA_HOME": folder + "/data",
                 "XDG_RUNTIME_DIR": folder, "LC_ALL": "C.UTF-8", **environment})

    @property
    def processor_seconds(self):
        """Of the process and its threads."""
        fields = pathlib.Path(f"/proc/{self._process.pid}/stat").read_text().rsplit(")")[-1].split()
        return (int(fields[11]) + int(fields[12])) / os.sysconf("SC_CLK_TCK")

    def press_connect(self, screen):
        """A click, as soon as there is a window."""
        def xdotool(*arguments):
            return subprocess.run(["xdotool", *arguments], env={"DISPLAY": screen.name},
                                  capture_output=True, text=True, check=False).stdout.split()
        window = wait_for(lambda: xdotool("search", "--onlyvisible", "--class", "device-workbench"),
                          "the workbench's window")[0]
        xdotool("mousemove", "--window", window, *CONNECT_BUTTON, "click", "1")

    def close(self):
        os.killpg(self._process.pid, signal.SIGKILL)
        self._process.wait()


def workbench(build, source, screen, folder):
    program = Program([build / "bin/device-workbench", "--no-robot", "--language", "en", "--address",
                       f"127.0.0.1:{source.port}"], screen, folder, {})
    program.press_connect(screen)
    return program


def rviz(source, screen, folder):
    config = pathlib.Path(folder) / "scan.rviz"
    config.write_text(RVIZ)
    return Program(["rviz", "-d", config], screen, folder,
                   source.environment)


def measure(start, seconds):
    """The time from start to the first scan, and the processor time of a second with scans."""
    with tempfile.TemporaryDirectory() as folder, contextlib.ExitStack() as end:
        screen = Screen(folder)
        end.callback(screen.close)
        program = start(screen, folder)
        end.callback(program.close)
        wait_for(lambda: screen.shows(RAY_COLOUR), "the first scan")
        first = time.monotonic() - program.begin
        if not seconds:
            return first, None
        time.sleep(2)  # what is done once after the start
        before, at = program.processor_seconds, time.monotonic()
        time.sleep(seconds)
        return first, (program.processor_seconds - before) / (time.monotonic() - at)


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("build", type=pathlib.Path, help="build folder, as build/release")
    parser.add_argument("--repetitions", type=int, default=5)
    parser.add_argument("--seconds", type=float, default=10, help="of processor time measured")
    arguments = parser.parse_args()

    for title, scans, seconds in (("683 ranges at 10 Hz", Scans(683, 10), 0),
                                  ("10,000 ranges at 40 Hz", Scans(10_000, 40), arguments.seconds)):
        figures = {"workbench": [], "rviz": []}
        with contextlib.ExitStack() as end:
            bridge, ros = RosbridgeSource(scans), RosSource(scans)
            end.callback(ros.close)
            end.callback(bridge.close)
            for _ in range(arguments.repetitions):
                figures["workbench"].append(measure(
                    lambda *place: workbench(arguments.build.resolve(), bridge, *place), seconds))
                figures["rviz"].append(measure(lambda *place: rviz(ros, *place), seconds))
        ours, theirs = ([statistics.median(column) for column in zip(*figures[name]) if None not in column]
                        for name in ("workbench", "rviz"))
        for what, aim, own, other in zip(("first scan after", "processor time a second"), (0.8, 0.3),
                                         ours, theirs):
            print(f"| rviz: {title}, {what} | {own:.2f} s | rviz | {other:.2f} s | {own / other:.2f} | {aim} "
                  f"| {os.getloadavg()[0]:.1f} |", flush=True)


if __name__ == "__main__":
    if sys.argv[1:2] == ["--publish"]:
        publish(int(sys.argv[2]), float(sys.argv[3]))
    else:
        main()
