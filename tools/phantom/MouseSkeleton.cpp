#include "phantom/Curves.h"
#include "phantom/Mouse.h"

#include <array>
#include <initializer_list>

namespace phantom {
namespace {

constexpr double vertebraBone = 190, ribBone = 190, cartilage = 170, limbBone = 225, girdleBone = 200;

constexpr int ribPairs = 13;

/// Sizes in mm of the vertebrae of one stretch of the spine; `dorsal` and `lateral` are the reach of the
/// processes.
struct Stretch
{
    Points course;
    int count;
    double radius, dorsal, lateral;
};

Points thoracicCourse()
{
    return {{0, 12.6, 1.9}, {0, 8, 3.3}, {0, 0, 5.2}, {0, -8, 6.2}, {0, -11.6, 6.4}};
}

void addVertebrae(std::vector<Solid>& solids, const Stretch& stretch)
{
    const Points places = evenlySpaced(stretch.course, stretch.count);
    const Points along = directions(places);
    const double pitch = length(places[1] - places[0]);
    const double r = stretch.radius;
    for (std::size_t i = 0; i < places.size(); ++i) {
        const Vec3 at = places[i];
        addBone(solids, vertebraBone,
                plate(at, {0.40 * pitch, r, 0.9 * r}, along[i], cross(along[i], {1, 0, 0})));
        const Vec3 backwards = along[i] * (0.2 * pitch);
        addTube(solids, Tissue::Bone, vertebraBone,
                {at + Vec3{0, 0, 0.5 * r}, at + backwards + Vec3{0, 0, r + stretch.dorsal}}, 0.5, 0.4);
        for (const double side : {-1.0, 1.0}) {
            const Vec3 reach{side * (r + stretch.lateral), 0, -0.2 * stretch.lateral};
            addTube(solids, Tissue::Bone, vertebraBone, {at, at + reach - backwards * 1.5}, 0.5, 0.4);
        }
    }
}

void addTail(std::vector<Solid>& solids)
{
    const Points places = evenlySpaced(tailCourse(), 29);
    for (std::size_t i = 1; i < places.size(); ++i) {
        const double size = 1.0 - 0.62 * static_cast<double>(i) / places.size();
        const Vec3 a = mix(places[i - 1], places[i], 0.3), b = mix(places[i - 1], places[i], 0.78);
        addBone(solids, vertebraBone, Capsule{a, b, 1.15 * size, 1.05 * size});
    }
}

/// One rib from the spine to the tip, as a slanted half ellipse that is followed in steps of 7.5 degrees.
void addRib(std::vector<Solid>& solids, Vec3 vertebra, int number, double side)
{
    static constexpr std::array<double, ribPairs> width{4.0, 5.3, 6.4, 7.3, 8.0, 8.6, 9.1,
                                                        9.5, 9.7, 9.8, 9.6, 9.2, 8.6};
    static constexpr std::array<double, ribPairs> lowest{-5.2, -6.3, -7.3, -8.2, -8.9, -9.4, -9.8,
                                                         -9.9, -9.8, -9.4, -8.6, -7.6, -6.4};
    static constexpr std::array<int, ribPairs> lastStep{22, 22, 22, 22, 22, 22, 22, 20, 19, 17, 15, 13, 11};
    constexpr int firstOfCartilage = 16;
    constexpr double stepCos = 0.99144486137381038, stepSin = 0.13052619222005157;

    const double high = vertebra.z + 0.4, depth = (high - lowest[number]) * 0.5;
    const double slant = 3.2 + 0.25 * number;
    Points bone, end;
    double c = 1, s = 0;
    for (int step = 0; step <= lastStep[number]; ++step) {
        const Vec3 p{side * width[number] * s, vertebra.y - slant * (0.30 * (1 - c) + 0.55 * s),
                     high - depth * (1 - c)};
        if (step <= firstOfCartilage) bone.push_back(p);
        if (step >= firstOfCartilage) end.push_back(p);
        const double turned = c * stepCos - s * stepSin;
        s = s * stepCos + c * stepSin;
        c = turned;
    }
    addTube(solids, Tissue::Bone, ribBone, bone, 0.64, 0.56);
    if (end.size() > 1) addTube(solids, Tissue::Bone, cartilage, end, 0.56, 0.46);
}

void addChest(std::vector<Solid>& solids)
{
    const Points places = evenlySpaced(thoracicCourse(), ribPairs);
    for (int i = 0; i < ribPairs; ++i)
        for (const double side : {-1.0, 1.0})
            addRib(solids, places[i], i, side);

    const Points breast = evenlySpaced({{0, 10.8, -5.2}, {0, 5, -8.0}, {0, -1, -9.5}, {0, -6.5, -10.2}}, 8);
    for (std::size_t i = 1; i < breast.size(); ++i)
        addBone(solids, ribBone,
                Capsule{mix(breast[i - 1], breast[i], 0.25), mix(breast[i - 1], breast[i], 0.8), 0.75, 0.7});
}

/// Collects the bones of one side of the body: everything is told for the right side and mirrored on demand.
class Side
{
public:
    Side(std::vector<Solid>& solids, double side)
        : m_solids(solids)
        , m_side(side)
    {}

    void tube(Points points, double ra, double rb, double density)
    {
        for (Vec3& p : points)
            p = placed(p);
        addTube(m_solids, Tissue::Bone, density, points, ra, rb);
    }
    void ball(Vec3 centre, double radius, double density)
    {
        addBone(m_solids, density, Ellipsoid{placed(centre), {radius, radius, radius}});
    }
    void flat(Vec3 centre, Vec3 radii, Vec3 along, Vec3 normal, double density)
    {
        addBone(m_solids, density, plate(placed(centre), radii, placed(along), placed(normal)));
    }
    /// A fan of digits from `wrist` over knuckles to tips, each of a hand's bone and two smaller ones.
    void digits(Vec3 wrist, const Points& knuckles, const Points& tips, double radius)
    {
        for (std::size_t i = 0; i < knuckles.size(); ++i) {
            const Vec3 root = mix(wrist, knuckles[i], 0.2);
            tube({root, mix(root, knuckles[i], 0.85)}, radius, radius, limbBone);
            const Vec3 joint = mix(knuckles[i], tips[i], 0.5);
            tube({knuckles[i], mix(knuckles[i], joint, 0.75)}, radius * 0.95, radius * 0.9, limbBone);
            tube({joint, tips[i]}, radius * 0.9, radius * 0.6, limbBone);
        }
    }

private:
    Vec3 placed(Vec3 p) const { return {p.x * m_side, p.y, p.z}; }

    std::vector<Solid>& m_solids;
    double m_side;
};

void addForelimb(Side& side)
{
    const Vec3 shoulder{7.3, 12.8, -0.6}, elbow{11.0, 6.4, -5.6}, wrist{12.3, 14.4, -9.4};
    side.flat({5.7, 9.0, 4.1}, {4.6, 2.1, 0.6}, {3.0, 5.4, -7.0}, {1, 0.1, 0.55}, girdleBone);
    side.tube({{4.9, 6.3, 7.4}, {6.9, 9.4, 3.9}, {8.1, 12.6, 0.6}}, 0.5, 0.6, girdleBone);
    side.tube(evenlySpaced({{0.7, 11.6, -5.0}, {3.6, 13.6, -3.6}, {7.2, 13.4, 0.0}}, 7), 0.5, 0.5,
              girdleBone);

    side.tube({shoulder, mix(shoulder, elbow, 0.5), elbow}, 1.0, 0.8, limbBone);
    side.ball(shoulder, 1.4, limbBone);
    side.ball(elbow, 1.2, limbBone);
    side.tube({mix(shoulder, elbow, 0.3) + Vec3{0.6, 0, -0.5}, mix(shoulder, elbow, 0.55)}, 0.7, 0.6,
              limbBone);
    side.tube({elbow + Vec3{0.5, -1.7, 0.5}, elbow + Vec3{0.7, 0.5, -0.4}, wrist + Vec3{0.6, 0, 0.1}}, 0.75,
              0.5, limbBone);
    side.tube(
        {elbow + Vec3{-0.7, 0.4, -0.4}, mix(elbow, wrist, 0.5) + Vec3{-1.0, 0, 0}, wrist + Vec3{-0.5, 0, 0}},
        0.7, 0.65, limbBone);
    side.ball(wrist + Vec3{-0.5, 0.8, -0.3}, 0.7, limbBone);
    side.ball(wrist + Vec3{0.6, 0.8, -0.3}, 0.7, limbBone);
    side.digits(wrist + Vec3{0, 0.6, -0.3},
                {{10.7, 17.2, -10.6}, {12.0, 17.9, -10.7}, {13.3, 17.8, -10.6}, {14.6, 16.9, -10.4}},
                {{9.6, 19.4, -11.2}, {11.8, 20.8, -11.3}, {13.9, 20.6, -11.0}, {16.0, 18.7, -10.6}}, 0.56);
}

void addPelvis(Side& side)
{
    const Vec3 socket{4.3, -27.6, 1.7};
    side.flat({2.9, -23.4, 5.2}, {3.4, 1.2, 0.7}, {0.3, -1, -0.35}, {1, 0, 0.3}, girdleBone);
    side.tube({{2.7, -21.0, 6.0}, {3.0, -24.5, 4.7}, socket}, 0.7, 1.0, girdleBone);
    side.ball(socket, 1.5, girdleBone);
    side.tube({socket, {3.9, -30.8, 0.6}, {3.2, -33.6, -0.8}}, 0.9, 0.9, girdleBone);
    side.tube({socket, {2.6, -28.8, -2.4}, {0.7, -31.0, -4.2}}, 0.8, 0.7, girdleBone);
    side.tube({{3.2, -33.6, -0.8}, {2.2, -34.0, -2.6}, {0.6, -33.0, -4.0}, {0.6, -31.0, -4.2}}, 0.8, 0.7,
              girdleBone);
}

void addHindlimb(Side& side)
{
    const Vec3 hip{5.1, -27.3, 1.6}, knee{12.6, -20.6, -2.8}, ankle{13.5, -31.8, -7.8};
    side.ball(hip, 1.3, limbBone);
    side.tube({hip, {6.6, -26.6, 1.2}, mix(hip, knee, 0.55), knee}, 1.15, 1.0, limbBone);
    side.ball({7.0, -27.0, 1.6}, 1.2, limbBone);
    side.ball(knee + Vec3{0.7, -0.3, 0.2}, 1.25, limbBone);
    side.ball(knee + Vec3{-0.6, -0.5, -0.5}, 1.25, limbBone);
    side.ball(knee + Vec3{0.5, 1.5, -0.9}, 0.6, limbBone);
    side.tube({knee + Vec3{0.1, -1.6, -0.9}, mix(knee, ankle, 0.3) + Vec3{-0.4, 0, -0.4}, ankle}, 1.25, 0.75,
              limbBone);
    side.tube(
        {knee + Vec3{1.4, -1.6, -0.3}, mix(knee, ankle, 0.35) + Vec3{1.2, 0, 0.3}, mix(knee, ankle, 0.72)},
        0.5, 0.5, limbBone);
    side.tube({{12.9, -34.4, -7.2}, {13.9, -31.6, -8.4}, {14.9, -30.0, -9.0}}, 0.95, 0.9, limbBone);
    side.digits({14.6, -30.6, -8.9},
                {{15.6, -25.0, -9.6}, {16.9, -24.9, -9.6}, {18.1, -25.4, -9.5}, {19.2, -26.4, -9.3}},
                {{16.0, -21.6, -10.3}, {18.0, -21.3, -10.2}, {20.0, -22.1, -10.0}, {21.6, -23.9, -9.8}}, 0.6);
}

}  // namespace

std::vector<Solid> skeletonBelowTheHead()
{
    std::vector<Solid> solids;
    addVertebrae(solids, {{{0, 18.6, 1.4}, {0, 16, 0.8}, {0, 13.8, 1.4}}, 6, 1.2, 0.3, 0.7});
    addVertebrae(solids, {thoracicCourse(), ribPairs, 1.15, 1.2, 0.3});
    addVertebrae(solids, {{{0, -13.6, 6.4}, {0, -18, 6.3}, {0, -24, 5.6}}, 6, 1.45, 1.1, 1.5});
    addVertebrae(solids, {{{0, -26, 5.3}, {0, -28.4, 4.8}, {0, -30.6, 4.2}}, 4, 1.4, 0.7, 1.2});
    addTail(solids);
    addChest(solids);
    for (const double which : {-1.0, 1.0}) {
        Side side(solids, which);
        addForelimb(side);
        addPelvis(side);
        addHindlimb(side);
    }
    return solids;
}

}  // namespace phantom
