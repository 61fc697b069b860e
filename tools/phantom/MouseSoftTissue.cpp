#include "phantom/Curves.h"
#include "phantom/Mouse.h"

#include <initializer_list>

namespace phantom {
namespace {

constexpr double fat = 34, muscle = 42, organ = 46, blood = 48, lung = 9, gas = 2;

Solid soft(double density, std::vector<Primitive> parts, double blend = 0)
{
    return {Tissue::Soft, density, std::move(parts), {}, blend, 0};
}

/// Head, trunk and thighs, flowing into each other; `inset` mm inside the skin.
Solid trunk(double density, double inset)
{
    const auto ellipsoid = [inset](Vec3 centre, Vec3 radii) {
        return Ellipsoid{centre, radii - Vec3{inset, inset, inset}};
    };
    const auto capsule = [inset](Vec3 a, Vec3 b, double ra, double rb) {
        return Capsule{a, b, ra - inset, rb - inset};
    };
    std::vector<Primitive> parts{
        ellipsoid({0, 23, 0.5}, {7.8, 7.5, 7.4}),         // back of the head
        capsule({0, 27, -0.5}, {0, 35.8, -1.2}, 6, 3.2),  // snout
        ellipsoid({0, 3, -1.8}, {11.8, 15, 11.2}),        // chest
        ellipsoid({0, -14, -2.2}, {13.2, 16, 11.2}),      // belly
        ellipsoid({0, -27, -0.4}, {10, 9, 8.6}),          // rump
    };
    for (const double side : {-1.0, 1.0}) {
        parts.emplace_back(capsule({side * 6, 12, -1}, {side * 10.8, 7, -5.5}, 4, 3));
        parts.emplace_back(capsule({side * 5, -27, 1}, {side * 12.3, -20.8, -2.7}, 5, 3.6));
    }
    return soft(density, parts, 4);
}

void addLimbs(std::vector<Solid>& solids, double side)
{
    const auto limb = [&](Vec3 a, Vec3 b, double ra, double rb) {
        a.x *= side;
        b.x *= side;
        solids.push_back(soft(fat, {Capsule{a, b, ra, rb}}));
        solids.push_back(soft(muscle, {Capsule{a, b, ra * 0.7, rb * 0.7}}));
    };
    limb({10.8, 6.8, -5.5}, {12.4, 14.5, -9.3}, 2.7, 1.9);
    limb({12.4, 14.5, -9.3}, {12.8, 18.5, -10.6}, 1.9, 1.6);
    limb({12.4, -20.6, -2.7}, {13.5, -31.6, -7.8}, 3.4, 1.9);
    limb({13.2, -33.4, -7.8}, {17.4, -26.8, -9.6}, 1.8, 1.6);
    limb({17.4, -26.8, -9.6}, {19.8, -22.4, -10.0}, 1.6, 1.3);
    solids.push_back(soft(fat, {plate({side * 7.6, 22.6, 6.6}, {3.2, 3.4, 0.7}, {side * 1.0, -0.3, 0.8},
                                      {-side * 0.5, 1, 0.5})}));
}

void addChest(std::vector<Solid>& solids)
{
    addTube(solids, Tissue::Soft, gas, {{0, 21, -4}, {0, 16, -2.4}, {0, 9, -0.6}}, 0.9, 0.8);
    Solid left = soft(
        lung, {Ellipsoid{{-4.2, 2.2, 0.2}, {3.5, 8.2, 5.2}}, Ellipsoid{{-5, -3, 1}, {3.6, 4.5, 4.6}}}, 3);
    Solid right =
        soft(lung, {Ellipsoid{{4.3, 2.0, 0.2}, {3.7, 8.6, 5.4}}, Ellipsoid{{5, -3, 1}, {3.8, 4.7, 4.8}}}, 3);
    solids.push_back(left);
    solids.push_back(right);
    solids.push_back(soft(blood, {plate({-1.1, 1.2, -3.6}, {4.4, 3.2, 3.1}, {-0.35, -1, -0.25}, {0, 0, 1})}));
    addTube(solids, Tissue::Soft, blood,
            {{-0.6, 3.5, -2.4}, {-0.4, 6.4, -0.6}, {-0.7, 4, 1.8}, {-0.7, -24, 1.6}}, 1.0, 0.7);
}

void addBelly(std::vector<Solid>& solids)
{
    solids.push_back(soft(
        organ, {Ellipsoid{{2.6, -8.4, -3.2}, {7, 3.8, 6.6}}, Ellipsoid{{-4.2, -7.8, -4.4}, {5, 3, 4.6}}}, 2));
    solids.push_back(soft(organ, {Ellipsoid{{-5, -13, -1.2}, {4, 3, 3.6}}}));  // stomach
    solids.push_back(soft(gas, {Ellipsoid{{-5.3, -12.8, 0.9}, {2, 1.5, 1.1}}}));
    solids.push_back(soft(organ, {Ellipsoid{{-5.2, -17.6, 2.6}, {2.1, 3.4, 2.1}}}));  // kidneys
    solids.push_back(soft(organ, {Ellipsoid{{5.2, -14.8, 2.6}, {2.1, 3.4, 2.1}}}));
    solids.push_back(soft(organ, {Ellipsoid{{0, -28, -5}, {2.4, 2.8, 2.2}}}));  // bladder
}

}  // namespace

std::vector<Solid> softTissue()
{
    std::vector<Solid> solids;
    for (const double side : {-1.0, 1.0})
        addLimbs(solids, side);
    addTube(solids, Tissue::Soft, fat, evenlySpaced(tailCourse(), 40), 2.2, 0.9);
    solids.push_back(trunk(fat, 0));
    solids.push_back(trunk(muscle, 1.3));
    solids.push_back(soft(organ, {Ellipsoid{{0, 23.6, 2.3}, {4.6, 4.8, 3.4}}}));       // brain
    solids.push_back(soft(gas, {Capsule{{0, 30.5, 1.6}, {0, 35.8, 0.6}, 1.6, 0.9}}));  // nasal cavity
    for (const double side : {-1.0, 1.0})
        solids.push_back(soft(organ, {Ellipsoid{{side * 4.9, 28.8, 2.6}, {1.7, 1.7, 1.7}}}));  // eyes
    addChest(solids);
    addBelly(solids);
    return solids;
}

}  // namespace phantom
