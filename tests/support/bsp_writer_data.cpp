#include "tests/support/bsp_writer_data.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <stdexcept>

namespace rd::test {

namespace {

constexpr std::size_t kHeaderSize = 8 + 8 * kLumpCount;

void putInt32(std::string& out, std::int32_t value) {
    const auto v = static_cast<std::uint32_t>(value);
    for (int i = 0; i < 4; ++i)
        out += static_cast<char>((v >> (8 * i)) & 0xFF);
}
void putUint16(std::string& out, std::uint16_t value) {
    out += static_cast<char>(value & 0xFF);
    out += static_cast<char>(value >> 8);
}
void putInt16(std::string& out, std::int16_t value) {
    putUint16(out, static_cast<std::uint16_t>(value));
}
void putFloat(std::string& out, float value) {
    std::uint32_t bits;
    std::memcpy(&bits, &value, sizeof bits);
    putInt32(out, static_cast<std::int32_t>(bits));
}

std::string lumpBytes(const BspMap& map, int lump) {
    std::string out;
    switch (lump) {
    case kLumpEntities:
        return map.entities;
    case kLumpPlanes:
        for (const auto& p : map.planes) {
            for (float n : p.normal)
                putFloat(out, n);
            putFloat(out, p.distance);
            putInt32(out, p.type);
        }
        return out;
    case kLumpVertices:
        for (const auto& v : map.vertices) {
            putFloat(out, v.x);
            putFloat(out, v.y);
            putFloat(out, v.z);
        }
        return out;
    case kLumpFaces:
        for (const auto& f : map.faces) {
            putUint16(out, f.plane);
            putInt16(out, f.side);
            putInt32(out, f.firstEdge);
            putInt16(out, f.edgeCount);
            putInt16(out, f.texinfo);
            out.append(4, '\0'); // light styles
            putInt32(out, -1);   // no light map
        }
        return out;
    case kLumpEdges:
        for (const auto& e : map.edges) {
            putUint16(out, e[0]);
            putUint16(out, e[1]);
        }
        return out;
    case kLumpSurfaceEdges:
        for (std::int32_t s : map.surfaceEdges)
            putInt32(out, s);
        return out;
    case kLumpModels:
        for (const auto& m : map.models) {
            for (const auto* triple : {&m.mins, &m.maxs, &m.origin})
                for (float v : *triple)
                    putFloat(out, v);
            putInt32(out, m.headNode);
            putInt32(out, m.firstFace);
            putInt32(out, m.faceCount);
        }
        return out;
    default: {
        const auto other = map.otherLumps.find(lump);
        return other == map.otherLumps.end() ? std::string() : other->second;
    }
    }
}

} // namespace

std::string buildBsp(const BspMap& map, const std::string& magic, std::int32_t version) {
    std::string header = magic.substr(0, 4);
    header.resize(4, '\0');
    putInt32(header, version);
    std::string body;
    for (int lump = 0; lump < kLumpCount; ++lump) {
        const std::string bytes = lumpBytes(map, lump);
        putInt32(header, static_cast<std::int32_t>(kHeaderSize + body.size()));
        putInt32(header, static_cast<std::int32_t>(bytes.size()));
        body += bytes;
        // Lumps start on four-byte boundaries, as map compilers write them.
        body.resize((body.size() + 3) & ~std::size_t{3}, '\0');
    }
    return header + body;
}

std::pair<std::int32_t, std::int32_t> bspLump(const std::string& bsp, int lump) {
    std::int32_t position = 0;
    std::int32_t length = 0;
    std::memcpy(&position, bsp.data() + 8 + 8 * lump, 4);
    std::memcpy(&length, bsp.data() + 12 + 8 * lump, 4);
    return {position, length};
}

void putBspInt32(std::string& bsp, std::size_t at, std::int32_t value) {
    std::string bytes;
    putInt32(bytes, value);
    bsp.replace(at, 4, bytes);
}

void putBspInt16(std::string& bsp, std::size_t at, std::int16_t value) {
    std::string bytes;
    putInt16(bytes, value);
    bsp.replace(at, 2, bytes);
}

void setBspLump(std::string& bsp, int lump, std::int32_t position, std::int32_t length) {
    putBspInt32(bsp, static_cast<std::size_t>(8 + 8 * lump), position);
    putBspInt32(bsp, static_cast<std::size_t>(12 + 8 * lump), length);
}

std::string entityText(const std::vector<BspEntity>& entities) {
    std::string out;
    for (const auto& entity : entities) {
        out += "{\n";
        for (const auto& [key, value] : entity)
            out += "\"" + key + "\" \"" + value + "\"\n";
        out += "}\n";
    }
    out += '\0';
    return out;
}

std::uint16_t BspBuilder::vertex(const BspVertex& v) {
    const auto found = vertexIndex_.find(v);
    if (found != vertexIndex_.end())
        return found->second;
    if (vertices_.size() > std::numeric_limits<std::uint16_t>::max())
        throw std::length_error("a map holds at most 65,536 vertices an edge can name");
    const auto index = static_cast<std::uint16_t>(vertices_.size());
    vertices_.push_back(v);
    vertexIndex_.emplace(v, index);
    return index;
}

std::int32_t BspBuilder::surfaceEdge(std::uint16_t from, std::uint16_t to) {
    if (edges_.empty())
        edges_.push_back({0, 0}); // edge 0 is never used: -0 cannot name it the other way round
    const auto key = std::minmax(from, to);
    const auto found = edgeIndex_.find({key.first, key.second});
    if (found != edgeIndex_.end())
        return edges_[static_cast<std::size_t>(found->second)][0] == from ? found->second : -found->second;
    const auto index = static_cast<std::int32_t>(edges_.size());
    edges_.push_back({from, to});
    edgeIndex_.emplace(std::make_pair(key.first, key.second), index);
    return index;
}

std::pair<std::uint16_t, std::int16_t> BspBuilder::plane(const std::array<float, 3>& normal, float distance) {
    const auto same = planeIndex_.find({normal[0], normal[1], normal[2], distance});
    if (same != planeIndex_.end())
        return {same->second, 0};
    const auto turned = planeIndex_.find({-normal[0], -normal[1], -normal[2], -distance});
    if (turned != planeIndex_.end())
        return {turned->second, 1};
    BspPlane p;
    p.normal = normal;
    p.distance = distance;
    // The axis a plane is square to (0, 1, 2), or 3 to 5 for the axis it leans most towards.
    const auto axis = std::max_element(normal.begin(), normal.end(),
                                       [](float a, float b) { return std::fabs(a) < std::fabs(b); }) -
                      normal.begin();
    p.type = static_cast<std::int32_t>(std::fabs(normal[static_cast<std::size_t>(axis)]) == 1.0f ? axis
                                                                                                 : axis + 3);
    if (planes_.size() > std::numeric_limits<std::uint16_t>::max())
        throw std::length_error("a face can name at most 65,536 planes");
    const auto index = static_cast<std::uint16_t>(planes_.size());
    planes_.push_back(p);
    planeIndex_.emplace(std::array<float, 4>{normal[0], normal[1], normal[2], distance}, index);
    return {index, 0};
}

void BspBuilder::addFace(const std::vector<BspVertex>& corners) {
    if (corners.size() < 3)
        throw std::invalid_argument("a face has at least three corners");
    // Newell's normal: the direction from which the corners run counter-clockwise.
    double nx = 0, ny = 0, nz = 0;
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const BspVertex& a = corners[i];
        const BspVertex& b = corners[(i + 1) % corners.size()];
        nx += (static_cast<double>(a.y) - b.y) * (static_cast<double>(a.z) + b.z);
        ny += (static_cast<double>(a.z) - b.z) * (static_cast<double>(a.x) + b.x);
        nz += (static_cast<double>(a.x) - b.x) * (static_cast<double>(a.y) + b.y);
    }
    const double length = std::sqrt(nx * nx + ny * ny + nz * nz);
    if (length == 0)
        throw std::invalid_argument("a face's corners lie on a line");
    const std::array<float, 3> normal{static_cast<float>(nx / length), static_cast<float>(ny / length),
                                      static_cast<float>(nz / length)};
    const float distance = normal[0] * corners[0].x + normal[1] * corners[0].y + normal[2] * corners[0].z;
    const auto [planeIndex, side] = plane(normal, distance);

    BspFace face;
    face.plane = planeIndex;
    face.side = side;
    face.firstEdge = static_cast<std::int32_t>(surfaceEdges_.size());
    face.edgeCount = static_cast<std::int16_t>(corners.size());
    std::vector<std::uint16_t> indexes;
    for (const auto& corner : corners)
        indexes.push_back(vertex(corner));
    for (std::size_t i = 0; i < indexes.size(); ++i)
        surfaceEdges_.push_back(surfaceEdge(indexes[i], indexes[(i + 1) % indexes.size()]));
    faces_.push_back(face);
}

void BspBuilder::addRoom(float x0, float y0, float x1, float y1, float floorZ, float ceilingZ) {
    const float z0 = floorZ;
    const float z1 = ceilingZ;
    addFace({{x0, y0, z0}, {x1, y0, z0}, {x1, y1, z0}, {x0, y1, z0}}); // floor, facing up
    addFace({{x0, y0, z1}, {x0, y1, z1}, {x1, y1, z1}, {x1, y0, z1}}); // ceiling, facing down
    addFace({{x0, y0, z0}, {x0, y0, z1}, {x1, y0, z1}, {x1, y0, z0}}); // south wall, facing north
    addFace({{x0, y1, z0}, {x1, y1, z0}, {x1, y1, z1}, {x0, y1, z1}}); // north wall, facing south
    addFace({{x0, y0, z0}, {x0, y1, z0}, {x0, y1, z1}, {x0, y0, z1}}); // west wall, facing east
    addFace({{x1, y0, z0}, {x1, y0, z1}, {x1, y1, z1}, {x1, y1, z0}}); // east wall, facing west
}

void BspBuilder::startModel() {
    modelStarts_.push_back(static_cast<std::int32_t>(faces_.size()));
}

BspMap BspBuilder::build(std::string entities) const {
    BspMap map;
    map.entities = std::move(entities);
    map.planes = planes_;
    map.vertices = vertices_;
    map.edges = edges_;
    map.surfaceEdges = surfaceEdges_;
    map.faces = faces_;
    for (std::size_t m = 0; m < modelStarts_.size(); ++m) {
        BspModel model;
        model.firstFace = modelStarts_[m];
        const std::int32_t end =
            m + 1 < modelStarts_.size() ? modelStarts_[m + 1] : static_cast<std::int32_t>(faces_.size());
        model.faceCount = end - model.firstFace;
        bool first = true;
        for (std::int32_t f = model.firstFace; f < end; ++f) {
            const BspFace& face = faces_[static_cast<std::size_t>(f)];
            for (std::int32_t e = 0; e < face.edgeCount; ++e) {
                const std::int32_t s = surfaceEdges_[static_cast<std::size_t>(face.firstEdge + e)];
                const auto& edge = edges_[static_cast<std::size_t>(s < 0 ? -s : s)];
                const BspVertex& v = vertices_[s < 0 ? edge[1] : edge[0]];
                const std::array<float, 3> at{v.x, v.y, v.z};
                for (std::size_t axis = 0; axis < 3; ++axis) {
                    model.mins[axis] = first ? at[axis] : std::min(model.mins[axis], at[axis]);
                    model.maxs[axis] = first ? at[axis] : std::max(model.maxs[axis], at[axis]);
                }
                first = false;
            }
        }
        map.models.push_back(model);
    }
    return map;
}

} // namespace rd::test
