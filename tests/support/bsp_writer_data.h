#pragma once
// Writes Quake 2 maps (BSP files, "IBSP" version 38) for tests, benchmarks and the demo: the
// 160-byte header (mark, version, position and length of each of the 19 lumps), the entity text,
// and the tables of planes, vertices, faces, edges, surface edges and models, plus raw bytes for
// any other lump. Nothing checks that the tables agree, so damaged maps can be built as well as
// sound ones; BspBuilder makes sound geometry from rooms and corridors.

#include <array>
#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace rd::test {

struct BspVertex {
    float x = 0, y = 0, z = 0;
    auto operator<=>(const BspVertex&) const = default;
};

struct BspPlane {
    std::array<float, 3> normal{};
    float distance = 0;
    std::int32_t type = 0;
};

struct BspFace {
    std::uint16_t plane = 0;
    std::int16_t side = 0; // non-zero: the face looks the other way from its plane
    std::int32_t firstEdge = 0;
    std::int16_t edgeCount = 0;
    std::int16_t texinfo = 0;
};

struct BspModel {
    std::array<float, 3> mins{};
    std::array<float, 3> maxs{};
    std::array<float, 3> origin{};
    std::int32_t headNode = 0;
    std::int32_t firstFace = 0;
    std::int32_t faceCount = 0;
};

// Lump numbers.
enum BspLump : int {
    kLumpEntities = 0,
    kLumpPlanes = 1,
    kLumpVertices = 2,
    kLumpVisibility = 3,
    kLumpFaces = 6,
    kLumpLighting = 7,
    kLumpEdges = 11,
    kLumpSurfaceEdges = 12,
    kLumpModels = 13,
    kLumpCount = 19
};

struct BspMap {
    std::string entities; // written as it stands (a map's entity text ends with a NUL)
    std::vector<BspPlane> planes;
    std::vector<BspVertex> vertices;
    std::vector<std::array<std::uint16_t, 2>> edges;
    std::vector<std::int32_t> surfaceEdges;
    std::vector<BspFace> faces;
    std::vector<BspModel> models;
    std::map<int, std::string> otherLumps; // any other lump's bytes, by lump number
};

// The map's bytes: the header, then the lumps in lump order, each where the header says.
std::string buildBsp(const BspMap& map, const std::string& magic = "IBSP", std::int32_t version = 38);

// The position and length of lump `lump` in a map's header, and a way to change them.
std::pair<std::int32_t, std::int32_t> bspLump(const std::string& bsp, int lump);
void setBspLump(std::string& bsp, int lump, std::int32_t position, std::int32_t length);
// Overwrites 4 bytes at `at` with a little-endian value (to damage a table in place).
void putBspInt32(std::string& bsp, std::size_t at, std::int32_t value);
void putBspInt16(std::string& bsp, std::size_t at, std::int16_t value);

// Entity text: each entity its keys and values in order, in braces, one "key" "value" a line,
// then a NUL.
using BspEntity = std::vector<std::pair<std::string, std::string>>;
std::string entityText(const std::vector<BspEntity>& entities);

// Geometry from boxes and faces, shared the way map compilers share it: a vertex or an edge used by
// several faces is stored once (an edge used the other way round is named negated), a face whose
// plane is another face's plane turned over uses that plane with its side set. Edge 0 is left
// unused, as in every map.
class BspBuilder {
public:
    // A face from its corners in order, facing the side from which they run counter-clockwise.
    void addFace(const std::vector<BspVertex>& corners);
    // A closed box: its floor (facing up), its ceiling (facing down) and four walls (facing in).
    void addRoom(float x0, float y0, float x1, float y1, float floorZ, float ceilingZ);
    // Faces added from now on belong to the next model (a door, a lift...); model 0 is the world.
    void startModel();

    // The map with these entities; each model's bounds are those of its faces' corners.
    BspMap build(std::string entities) const;

private:
    std::uint16_t vertex(const BspVertex& v);
    std::int32_t surfaceEdge(std::uint16_t from, std::uint16_t to);
    std::pair<std::uint16_t, std::int16_t> plane(const std::array<float, 3>& normal, float distance);

    std::vector<BspVertex> vertices_;
    std::map<BspVertex, std::uint16_t> vertexIndex_;
    std::vector<std::array<std::uint16_t, 2>> edges_;
    std::map<std::pair<std::uint16_t, std::uint16_t>, std::int32_t> edgeIndex_;
    std::vector<std::int32_t> surfaceEdges_;
    std::vector<BspPlane> planes_;
    std::map<std::array<float, 4>, std::uint16_t> planeIndex_;
    std::vector<BspFace> faces_;
    std::vector<std::int32_t> modelStarts_{0};
};

} // namespace rd::test
