// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "robot/simulation/World.h"

#include <box2d/b2_body.h>
#include <box2d/b2_circle_shape.h>
#include <box2d/b2_fixture.h>
#include <box2d/b2_polygon_shape.h>
#include <box2d/b2_world.h>
#include <box2d/b2_world_callbacks.h>

#include <algorithm>
#include <cmath>

namespace robot::simulation {

namespace {

// Box2D's own recommendation for the solver.
constexpr int velocityIterations = 8;
constexpr int positionIterations = 3;

constexpr float timeStepSeconds = std::chrono::duration<float>(World::timeStep).count();

// kg/m²: a person who bumps into the robot is who gives way.
constexpr float robotDensity = 400.0F;
constexpr float personDensity = 40.0F;

// How much a person's direction sways, radians per square root of a second.
constexpr float sway = 0.6F;

class NearestHit : public b2RayCastCallback
{
public:
    explicit NearestHit(const b2Body* ignored) : m_ignored(ignored) {}

    float ReportFixture(b2Fixture* fixture, const b2Vec2& /*point*/, const b2Vec2& /*normal*/,
                        float fraction) override
    {
        if (fixture->GetBody() == m_ignored)
            return -1.0F; // go on as if it were not there
        m_fraction = fraction;
        return fraction; // look for nearer ones only
    }

    std::optional<float> fraction() const { return m_fraction; }

private:
    const b2Body* m_ignored;
    std::optional<float> m_fraction;
};

/// What Box2D keeps with each fixture: the index of its box or person.
std::size_t indexOf(b2Fixture& fixture)
{
    return fixture.GetUserData().pointer;
}

class AllHits : public b2RayCastCallback
{
public:
    AllHits(const b2Body* ignored, double length) : m_ignored(ignored), m_length(length) {}

    float ReportFixture(b2Fixture* fixture, const b2Vec2& /*point*/, const b2Vec2& normal,
                        float fraction) override
    {
        if (fixture->GetBody() == m_ignored)
            return -1.0F; // go on as if it were not there
        World::Hit hit;
        hit.distance = fraction * m_length;
        hit.normal_x = normal.x;
        if (fixture->GetBody()->GetType() == b2_dynamicBody)
            hit.person = static_cast<int>(indexOf(*fixture));
        else
            hit.upTo = FloorPlan::walls()[indexOf(*fixture)].upTo;
        m_hits.push_back(hit);
        if (hit.upTo >= FloorPlan::ceiling)
            m_reach = fraction; // nothing is seen behind a wall
        return m_reach;
    }

    /// Farthest first. Hits are reported in any order, so some may lie behind a wall.
    std::vector<World::Hit> sorted()
    {
        std::sort(m_hits.begin(), m_hits.end(),
                  [](const auto& a, const auto& b) { return a.distance > b.distance; });
        const auto wall = std::find_if(m_hits.rbegin(), m_hits.rend(), [](const World::Hit& hit) {
            return hit.upTo >= FloorPlan::ceiling;
        });
        if (wall != m_hits.rend())
            m_hits.erase(m_hits.begin(), wall.base() - 1);
        return std::move(m_hits);
    }

private:
    const b2Body* m_ignored;
    double m_length;
    float m_reach = 1.0F;
    std::vector<World::Hit> m_hits;
};

b2Vec2 vector(double x, double y)
{
    return {static_cast<float>(x), static_cast<float>(y)};
}

} // namespace

World::World(quint32 seed) : m_random(seed), m_physics(std::make_unique<b2World>(b2Vec2(0, 0)))
{
    addWalls();
    m_robot = addDisc(FloorPlan::robotStart, robotRadius, robotDensity);
    std::uniform_real_distribution<double> direction(-pi, pi);
    std::uniform_real_distribution<float> speed(0.3F, 0.8F);
    for (const Pose2D& place : FloorPlan::people()) {
        Person person;
        person.body = addDisc(place, personRadius, personDensity);
        person.body->GetFixtureList()->GetUserData().pointer = m_people.size();
        person.speed = speed(m_random);
        const double angle = direction(m_random);
        person.body->SetLinearVelocity(person.speed * vector(std::cos(angle), std::sin(angle)));
        m_people.push_back(person);
    }
}

World::~World() = default;

void World::addWalls()
{
    const b2BodyDef definition; // static, at the origin
    b2Body* building = m_physics->CreateBody(&definition);
    std::size_t index = 0;
    for (const FloorPlan::Box& box : FloorPlan::walls()) {
        b2PolygonShape shape;
        shape.SetAsBox(static_cast<float>((box.right - box.left) / 2.0),
                       static_cast<float>((box.top - box.bottom) / 2.0),
                       vector((box.left + box.right) / 2.0, (box.bottom + box.top) / 2.0), 0.0F);
        building->CreateFixture(&shape, 0.0F)->GetUserData().pointer = index++;
    }
}

b2Body* World::addDisc(const Pose2D& pose, double radius, float density)
{
    b2BodyDef definition;
    definition.type = b2_dynamicBody;
    definition.position = vector(pose.x, pose.y);
    definition.angle = static_cast<float>(pose.theta);
    definition.allowSleep = false;
    b2CircleShape shape;
    shape.m_radius = static_cast<float>(radius);
    b2FixtureDef fixture;
    fixture.shape = &shape;
    fixture.density = density;
    fixture.friction = 0.0F;
    b2Body* body = m_physics->CreateBody(&definition);
    body->CreateFixture(&fixture);
    return body;
}

void World::step()
{
    const float heading = m_robot->GetAngle();
    m_robot->SetLinearVelocity(static_cast<float>(m_twist.linear_x) *
                               vector(std::cos(heading), std::sin(heading)));
    m_robot->SetAngularVelocity(static_cast<float>(m_twist.angular_z));
    for (const Person& person : m_people)
        walk(person);
    m_physics->Step(timeStepSeconds, velocityIterations, positionIterations);
    m_time += timeStep;
}

// People bounce off what they meet (Box2D) and otherwise walk on at their own speed, swaying.
void World::walk(const Person& person)
{
    const b2Vec2 velocity = person.body->GetLinearVelocity();
    std::normal_distribution<float> turn(0.0F, sway * std::sqrt(timeStepSeconds));
    float direction = std::atan2(velocity.y, velocity.x) + turn(m_random);
    if (velocity.Length() < person.speed / 10.0F)
        direction = std::uniform_real_distribution<float>(-b2_pi, b2_pi)(m_random);
    person.body->SetLinearVelocity(person.speed * b2Vec2(std::cos(direction), std::sin(direction)));
}

Pose2D World::robotPose() const
{
    const b2Vec2 position = m_robot->GetPosition();
    return {position.x, position.y, normalizedAngle(m_robot->GetAngle())};
}

Twist World::robotTwist() const
{
    const b2Vec2 velocity = m_robot->GetLocalVector(m_robot->GetLinearVelocity());
    return {velocity.x, m_robot->GetAngularVelocity()};
}

std::vector<Pose2D> World::people() const
{
    std::vector<Pose2D> poses;
    poses.reserve(m_people.size());
    for (const Person& person : m_people) {
        const b2Vec2 position = person.body->GetPosition();
        const b2Vec2 velocity = person.body->GetLinearVelocity();
        poses.push_back({position.x, position.y, std::atan2(velocity.y, velocity.x)});
    }
    return poses;
}

std::optional<double> World::castRay(const Pose2D& from, double length) const
{
    const b2Vec2 start = vector(from.x, from.y);
    const b2Vec2 end =
        vector(from.x + length * std::cos(from.theta), from.y + length * std::sin(from.theta));
    NearestHit hit(m_robot);
    m_physics->RayCast(&hit, start, end);
    if (!hit.fraction())
        return std::nullopt;
    return *hit.fraction() * length;
}

std::vector<World::Hit> World::castThrough(const Pose2D& from, double length) const
{
    const b2Vec2 start = vector(from.x, from.y);
    const b2Vec2 end =
        vector(from.x + length * std::cos(from.theta), from.y + length * std::sin(from.theta));
    AllHits hits(m_robot, length);
    m_physics->RayCast(&hits, start, end);
    return hits.sorted();
}

} // namespace robot::simulation
