// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Benchmarks.h"
#include "Ratios.h"

#include "robot/simulation/CameraView.h"

#include <QBuffer>
#include <QByteArray>

// The robot's pictures, drawn and encoded, beside the encoding of a picture of the same size that
// has nothing in it: that much any camera costs.

using namespace robot::simulation;

namespace {

CameraInfo lens(const char* resolution)
{
    Camera camera;
    camera.setResolution(QLatin1String(resolution), Time(0), nullptr);
    return camera.takeFrame(Time(0)).value();
}

void encode(benchmark::State& state, const QImage& picture)
{
    measure(state, [&picture] {
        QByteArray bytes;
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::WriteOnly);
        picture.save(&buffer, "jpeg", 80);
        benchmark::DoNotOptimize(bytes);
    });
}

void draw(benchmark::State& state, const char* resolution)
{
    const World world(1);
    const CameraInfo info = lens(resolution);
    measure(state, [&] { benchmark::DoNotOptimize(CameraView(world, info).picture()); });
}

void encodeDrawn(benchmark::State& state, const char* resolution)
{
    const World world(1);
    encode(state, CameraView(world, lens(resolution)).picture());
}

void encodeBlank(benchmark::State& state, const char* resolution)
{
    const CameraInfo info = lens(resolution);
    QImage picture(static_cast<int>(info.width), static_cast<int>(info.height),
                   QImage::Format_RGB32);
    picture.fill(Qt::white);
    encode(state, picture);
}

} // namespace

void addCamera(Ratios& ratios)
{
    for (const char* const resolution : {"320x240", "640x480", "1024x768"}) {
        const std::string name = std::string("camera: ") + resolution;
        benchmark::RegisterBenchmark((name + ", drawn").c_str(), draw, resolution);
        benchmark::RegisterBenchmark((name + ", as JPEG").c_str(), encodeDrawn, resolution);
        benchmark::RegisterBenchmark((name + ", blank JPEG").c_str(), encodeBlank, resolution);
        ratios.compare(name + ", drawn", name + ", blank JPEG", 1);
        ratios.compare(name + ", as JPEG", name + ", blank JPEG", 0);
    }
}
