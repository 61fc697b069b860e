#include "phantom/Curves.h"
#include "phantom/Mouse.h"

#include <initializer_list>

namespace phantom {
namespace {

constexpr double skullBone = 205, jawBone = 215, tooth = 250;

/// Brain case and snout in one hollow piece, open at the eyes, the nose and the nape.
Solid braincase()
{
    Solid s;
    s.tissue = Tissue::Bone;
    s.density = skullBone;
    s.parts = {Ellipsoid{{0, 23.4, 2.3}, {5.3, 5.3, 4.1}}, Ellipsoid{{0, 27.6, 2.3}, {3.4, 4.0, 3.3}},
               Capsule{{0, 29.5, 2.0}, {0, 35.9, 0.5}, 2.7, 1.7}};
    s.blend = 1.6;
    s.wall = 1.0;
    for (const double side : {-1.0, 1.0}) {
        s.cuts.emplace_back(Ellipsoid{{side * 4.6, 28.7, 2.5}, {2.6, 2.3, 2.2}});
        s.cuts.emplace_back(Ellipsoid{{side * 1.0, 32.6, -1.6}, {0.6, 1.6, 1.2}});
    }
    s.cuts.emplace_back(Ellipsoid{{0, 37.6, 0.4}, {1.1, 1.6, 1.0}});
    s.cuts.emplace_back(Capsule{{0, 16, 1.0}, {0, 20, 1.0}, 1.4, 1.4});
    return s;
}

void addCheekAndEar(std::vector<Solid>& solids, double side)
{
    addTube(solids, Tissue::Bone, skullBone,
            evenlySpaced({{side * 2.9, 32.0, -0.1},
                          {side * 4.7, 30.6, -0.7},
                          {side * 5.7, 28.0, -0.9},
                          {side * 5.7, 25.8, -0.5},
                          {side * 5.0, 23.8, 0.4}},
                         14),
            0.7, 0.55);
    Solid ear{Tissue::Bone, skullBone, {Ellipsoid{{side * 3.1, 20.9, -1.7}, {1.8, 2.1, 1.6}}}, {}, 0, 0.7};
    solids.push_back(ear);
}

void addJaw(std::vector<Solid>& solids, double side)
{
    const auto tube = [&](Points points, double ra, double rb, double density) {
        for (Vec3& p : points)
            p.x *= side;
        addTube(solids, Tissue::Bone, density, points, ra, rb);
    };
    addBone(solids, jawBone,
            plate({side * 4.1, 25.0, -3.5}, {2.5, 1.7, 0.55}, {0, 1, -0.5}, {side, 0.2, 0.2}));
    tube({{4.3, 24.6, -3.2}, {4.7, 22.8, -1.5}}, 0.65, 0.6, jawBone);  // to the joint
    tube({{4.1, 24.6, -4.6}, {4.4, 21.8, -5.3}}, 0.75, 0.4, jawBone);  // angle
    tube({{4.0, 26.2, -3.0}, {4.3, 26.2, -1.0}}, 0.6, 0.35, jawBone);  // coronoid process
    tube(evenlySpaced({{3.9, 25.6, -4.5}, {2.9, 28.8, -5.2}, {1.6, 31.6, -4.9}, {0.8, 33.4, -4.2}}, 8), 0.95,
         0.8, jawBone);
    tube({{0.65, 32.6, -4.4}, {0.6, 34.8, -4.3}, {0.5, 36.1, -3.4}, {0.45, 36.6, -2.5}}, 0.6, 0.4, tooth);
    tube({{0.65, 33.6, 0.2}, {0.65, 36.2, 0.0}, {0.6, 37.2, -0.9}, {0.55, 37.1, -2.2}}, 0.65, 0.45, tooth);
    for (int i = 0; i < 3; ++i) {
        addBone(solids, tooth, Ellipsoid{{side * 2.1, 31.0 - 1.4 * i, -1.3}, {0.7, 0.75, 0.9}});
        addBone(solids, tooth, Ellipsoid{{side * 2.2, 30.8 - 1.4 * i, -3.5}, {0.65, 0.7, 0.9}});
    }
}

}  // namespace

std::vector<Solid> skull()
{
    std::vector<Solid> solids{braincase()};
    for (const double side : {-1.0, 1.0}) {
        addCheekAndEar(solids, side);
        addJaw(solids, side);
    }
    return solids;
}

}  // namespace phantom
