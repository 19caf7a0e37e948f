#include "maps/bsp.h"

#include "core/nativefile.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>
#include <limits>
#include <memory>

namespace rd {

namespace {

using namespace std::string_view_literals;

static_assert(std::endian::native == std::endian::little,
              "map files are little-endian and are read into memory as they are stored");

// The header: "IBSP", the version, then the position and length of each of the 19 lumps.
constexpr std::uint64_t kBspHeaderSize = 8 + 19 * 8;
constexpr std::int32_t kVersion = 38;

// The lumps the card reads, with the size of one record in each.
struct LumpKind {
    int index;
    const char* name;   // "the <name> lump"
    const char* plural; // what its records are called
    std::size_t recordSize;
};
constexpr LumpKind kEntities{0, "entity", "", 1};
constexpr LumpKind kPlanes{1, "plane", "planes", 20};
constexpr LumpKind kVertices{2, "vertex", "vertices", 12};
constexpr LumpKind kFaces{6, "face", "faces", 20};
constexpr LumpKind kEdges{11, "edge", "edges", 4};
constexpr LumpKind kSurfaceEdges{12, "surface edge", "surface edges", 4};
constexpr LumpKind kModels{13, "model", "models", 48};

// A face a player can stand on: its normal points up at least this steeply (the game's own limit
// for walking).
constexpr float kFloorNormal = 0.7f;

// The game's weapons, in the order of its inventory: the original game, its capture-the-flag
// grapple, then the weapons of the two mission packs.
struct Weapon {
    std::string_view classname;
    const char* name;
};
constexpr Weapon kWeapons[] = {
    {"weapon_blaster", "Blaster"},
    {"weapon_shotgun", "Shotgun"},
    {"weapon_supershotgun", "Super Shotgun"},
    {"weapon_machinegun", "Machinegun"},
    {"weapon_chaingun", "Chaingun"},
    {"weapon_grenadelauncher", "Grenade Launcher"},
    {"weapon_rocketlauncher", "Rocket Launcher"},
    {"weapon_hyperblaster", "HyperBlaster"},
    {"weapon_railgun", "Railgun"},
    {"weapon_bfg", "BFG10K"},
    {"weapon_grapple", "Grapple"},
    {"weapon_boomer", "Ionripper"},
    {"weapon_phalanx", "Phalanx"},
    {"weapon_chainfist", "Chainfist"},
    {"weapon_etf_rifle", "ETF Rifle"},
    {"weapon_proxlauncher", "Prox Launcher"},
    {"weapon_plasmabeam", "Plasma Beam"},
    {"weapon_disintegrator", "Disruptor"},
};
constexpr std::size_t kWeaponCount = sizeof(kWeapons) / sizeof(kWeapons[0]);
static_assert(kWeaponCount <= 32, "the weapons found are kept as bits of one word");

// Why a map gives no card; thrown inside the reader and caught at its edge.
struct NoCard {
    std::string reason;
};

[[noreturn]] void damaged(const std::string& what) {
    throw NoCard{kDamagedMap + what};
}

void checkCancel(const std::atomic<bool>* cancel) {
    if (cancel && cancel->load(std::memory_order_relaxed))
        throw NoCard{kAbandoned};
}

std::int32_t int32At(const char* p) {
    std::int32_t v;
    std::memcpy(&v, p, sizeof v);
    return v;
}
std::int16_t int16At(const char* p) {
    std::int16_t v;
    std::memcpy(&v, p, sizeof v);
    return v;
}
std::uint16_t uint16At(const char* p) {
    std::uint16_t v;
    std::memcpy(&v, p, sizeof v);
    return v;
}
float floatAt(const char* p) {
    float v;
    std::memcpy(&v, p, sizeof v);
    return v;
}

// Where a map's bytes come from.
class Source {
public:
    virtual ~Source() = default;
    // Reads exactly `count` bytes from position `at` of the map (the caller has checked that they
    // lie within the map), or throws NoCard.
    virtual void read(std::uint64_t at, char* into, std::size_t count) = 0;
};

class FileSource final : public Source {
public:
    FileSource(native::InputFile& file, std::uint64_t base) : file_(file), base_(base) {}
    void read(std::uint64_t at, char* into, std::size_t count) override {
        std::uint64_t position = base_ + at;
        while (count > 0) {
            const std::ptrdiff_t got = file_.readAt(position, into, count);
            if (got < 0)
                throw NoCard{"its file cannot be read"};
            if (got == 0)
                damaged("the file ends before the map does");
            into += got;
            position += static_cast<std::uint64_t>(got);
            count -= static_cast<std::size_t>(got);
        }
    }

private:
    native::InputFile& file_;
    std::uint64_t base_;
};

class MemorySource final : public Source {
public:
    explicit MemorySource(std::string_view bytes) : bytes_(bytes) {}
    void read(std::uint64_t at, char* into, std::size_t count) override {
        if (count > 0)
            std::memcpy(into, bytes_.data() + at, count);
    }

private:
    std::string_view bytes_;
};

// One lump read into memory: never more bytes than the lump holds, and the lump lies in the map.
class Lump {
public:
    const char* data() const { return bytes_.get(); }
    std::size_t size() const { return size_; }
    std::size_t count() const { return count_; }
    const char* record(std::size_t i) const { return bytes_.get() + i * recordSize_; }

    static Lump read(Source& source, const char* header, std::uint64_t mapLength, const LumpKind& kind) {
        const char* entry = header + 8 + 8 * kind.index;
        const std::int32_t offset = int32At(entry);
        const std::int32_t length = int32At(entry + 4);
        const std::string lump = std::string("the ") + kind.name + " lump";
        if (offset < 0 || length < 0)
            damaged(lump + " has a negative position or length");
        if (static_cast<std::uint64_t>(offset) + static_cast<std::uint64_t>(length) > mapLength)
            damaged(lump + " runs past the end of the map");
        if (static_cast<std::size_t>(length) % kind.recordSize != 0)
            damaged(lump + " does not hold a whole number of " + kind.plural);
        Lump out;
        out.size_ = static_cast<std::size_t>(length);
        out.recordSize_ = kind.recordSize;
        out.count_ = out.size_ / kind.recordSize;
        if (out.size_ > 0) {
            out.bytes_ = std::make_unique_for_overwrite<char[]>(out.size_);
            source.read(static_cast<std::uint64_t>(offset), out.bytes_.get(), out.size_);
        }
        return out;
    }

private:
    std::unique_ptr<char[]> bytes_;
    std::size_t size_ = 0;
    std::size_t recordSize_ = 1;
    std::size_t count_ = 0;
};

char asciiLower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

// `lower` is in lower case already.
bool equalsAsciiNoCase(std::string_view a, std::string_view lower) {
    if (a.size() != lower.size())
        return false;
    for (std::size_t i = 0; i < a.size(); ++i)
        if (asciiLower(a[i]) != lower[i])
            return false;
    return true;
}

// The first double quote from `p` on, or `end`. Quoted texts are short, so instead of a library
// call the bytes are looked at eight at a time, each word tested for a byte equal to '"'.
const char* findQuote(const char* p, const char* end) {
    constexpr std::uint64_t kOnes = 0x0101010101010101ull;
    constexpr std::uint64_t kHighs = 0x8080808080808080ull;
    constexpr std::uint64_t kQuotes = kOnes * static_cast<unsigned char>('"');
    while (end - p >= 8) {
        std::uint64_t word;
        std::memcpy(&word, p, sizeof word);
        const std::uint64_t x = word ^ kQuotes; // a quote became a zero byte
        const std::uint64_t zeros = (x - kOnes) & ~x & kHighs;
        if (zeros != 0)
            return p + std::countr_zero(zeros) / 8; // the lowest byte is the first one (little-endian)
        p += 8;
    }
    while (p < end && *p != '"')
        ++p;
    return p;
}

// The entity text, token by token as the game reads it: blanks and control characters separate
// tokens, "//" starts a comment to the end of the line, a double quote starts a text that runs to
// the next double quote (blanks included), anything else is a word up to the next blank. The text
// ends at its first NUL.
class Tokens {
public:
    enum class Kind { End, Word, Quoted };

    explicit Tokens(std::string_view text) : p_(text.data()), end_(text.data() + text.size()) {
        if (text.empty())
            return; // an empty lump has no bytes at all
        if (const void* nul = std::memchr(p_, '\0', text.size()))
            end_ = static_cast<const char*>(nul);
    }

    Kind next(std::string_view& token) {
        for (;;) {
            while (p_ < end_ && static_cast<unsigned char>(*p_) <= ' ')
                ++p_;
            if (p_ == end_)
                return Kind::End;
            if (*p_ == '/' && p_ + 1 < end_ && p_[1] == '/') {
                const void* lineEnd = std::memchr(p_, '\n', static_cast<std::size_t>(end_ - p_));
                p_ = lineEnd ? static_cast<const char*>(lineEnd) : end_;
                continue;
            }
            break;
        }
        if (*p_ == '"') {
            const char* start = p_ + 1;
            const char* closing = findQuote(start, end_);
            if (closing == end_)
                damaged("a quoted text in the entities has no closing quote");
            token = std::string_view(start, static_cast<std::size_t>(closing - start));
            p_ = closing + 1;
            return Kind::Quoted;
        }
        const char* start = p_;
        while (p_<end_&& static_cast<unsigned char>(*p_)> ' ')
            ++p_;
        token = std::string_view(start, static_cast<std::size_t>(p_ - start));
        return Kind::Word;
    }

private:
    const char* p_;
    const char* end_;
};

// The world's message as a one-line title: Quake marks line breaks with "\n" (a backslash and an
// n); each line is trimmed of blanks and the lines are joined with one blank.
std::string titleOf(std::string_view message) {
    std::string title;
    std::string_view rest = message;
    while (true) {
        std::size_t cut = rest.size();
        std::size_t skip = 0;
        for (std::size_t i = 0; i < rest.size(); ++i) {
            if (rest[i] == '\n' || rest[i] == '\r') {
                cut = i;
                skip = 1;
                break;
            }
            if (rest[i] == '\\' && i + 1 < rest.size() && rest[i + 1] == 'n') {
                cut = i;
                skip = 2;
                break;
            }
        }
        std::string_view line = rest.substr(0, cut);
        while (!line.empty() && (line.front() == ' ' || line.front() == '\t'))
            line.remove_prefix(1);
        while (!line.empty() && (line.back() == ' ' || line.back() == '\t'))
            line.remove_suffix(1);
        if (!line.empty()) {
            if (!title.empty())
                title += ' ';
            title.append(line);
        }
        if (skip == 0)
            break;
        rest.remove_prefix(cut + skip);
    }
    return title;
}

// Reads the entities into the card. Keys are matched without regard to case and classnames with
// it, as the game does; a key given twice counts with its last value.
void readEntities(std::string_view text, MapCard& card) {
    Tokens tokens(text);
    std::string_view token;
    bool worldSeen = false;
    std::uint32_t knownWeapons = 0;
    std::vector<std::string_view> otherWeapons;
    for (;;) {
        Tokens::Kind kind = tokens.next(token);
        if (kind == Tokens::Kind::End)
            break;
        if (kind == Tokens::Kind::Quoted || token.front() != '{')
            damaged("the entities hold text outside braces");
        std::string_view classname;
        std::string_view message;
        for (;;) {
            std::string_view key;
            kind = tokens.next(key);
            if (kind == Tokens::Kind::End)
                damaged("an entity has no closing brace");
            if (kind == Tokens::Kind::Word && key.front() == '}')
                break;
            std::string_view value;
            kind = tokens.next(value);
            if (kind == Tokens::Kind::End)
                damaged("an entity has no closing brace");
            if (kind == Tokens::Kind::Word && value.front() == '}')
                damaged("an entity key has no value");
            if (equalsAsciiNoCase(key, "classname"sv))
                classname = value;
            else if (equalsAsciiNoCase(key, "message"sv))
                message = value;
        }
        if (classname == "worldspawn"sv) {
            if (!worldSeen)
                card.title = titleOf(message);
            worldSeen = true;
        } else if (classname == "info_player_deathmatch"sv) {
            ++card.deathmatchSpawns;
        } else if (classname == "info_player_start"sv) {
            ++card.singleStarts;
        } else if (classname == "info_player_team1"sv) {
            ++card.teamSpawns[0];
        } else if (classname == "info_player_team2"sv) {
            ++card.teamSpawns[1];
        } else if (classname == "item_flag_team1"sv || classname == "item_flag_team2"sv) {
            card.ctf = true;
        } else if (classname.starts_with("weapon_"sv)) {
            std::size_t known = 0;
            while (known < kWeaponCount && classname != kWeapons[known].classname)
                ++known;
            if (known < kWeaponCount)
                knownWeapons |= 1u << known;
            else
                otherWeapons.push_back(classname);
        }
    }
    for (std::size_t i = 0; i < kWeaponCount; ++i)
        if (knownWeapons & (1u << i))
            card.weapons.emplace_back(kWeapons[i].classname);
    std::sort(otherWeapons.begin(), otherWeapons.end());
    otherWeapons.erase(std::unique(otherWeapons.begin(), otherWeapons.end()), otherWeapons.end());
    for (const std::string_view weapon : otherWeapons)
        card.weapons.emplace_back(weapon);
}

// The world's bounds and its floor plan from its first model.
void readWorld(const Lump& models, const Lump& faces, const Lump& planes, const Lump& vertices,
               const Lump& edges, const Lump& surfaceEdges, MapCard& card, const std::atomic<bool>* cancel) {
    if (models.count() == 0)
        damaged("it has no world model");
    const char* world = models.record(0);
    for (int axis = 0; axis < 3; ++axis) {
        card.mins[static_cast<std::size_t>(axis)] = floatAt(world + 4 * axis);
        card.maxs[static_cast<std::size_t>(axis)] = floatAt(world + 12 + 4 * axis);
        if (!std::isfinite(card.mins[static_cast<std::size_t>(axis)]) ||
            !std::isfinite(card.maxs[static_cast<std::size_t>(axis)]))
            damaged("the world's bounds are not numbers");
    }
    const std::int32_t firstFace = int32At(world + 40);
    const std::int32_t faceCount = int32At(world + 44);
    if (firstFace < 0 || faceCount < 0 ||
        static_cast<std::uint64_t>(firstFace) + static_cast<std::uint64_t>(faceCount) > faces.count())
        damaged("the world model's faces lie outside the face table");

    // Which way each plane looks, worked out once: bit 0 set when a face on the plane looks up steeply
    // enough to stand on, bit 1 when a face turned away from it does.
    std::vector<unsigned char> floorSides(planes.count());
    for (std::size_t i = 0; i < planes.count(); ++i) {
        const float up = floatAt(planes.record(i) + 8);
        floorSides[i] =
            static_cast<unsigned char>((up > kFloorNormal ? 1 : 0) | (-up > kFloorNormal ? 2 : 0));
    }

    // Only what the plan uses is followed, and checked before it is used: the floors' surface edges,
    // their edges and those edges' vertices. A vertex becomes a point of the plan the first time an
    // edge reaches it (`pointOf` holds its point's number + 1), an edge a line the first time a floor
    // names it.
    MapPlan& plan = card.plan;
    const std::size_t vertexCount = vertices.count();
    const auto edgeCount = static_cast<std::uint64_t>(edges.count());
    const auto surfaceEdgeCount = static_cast<std::uint64_t>(surfaceEdges.count());
    const std::size_t planeCount = planes.count();
    std::vector<std::uint32_t> pointOf(std::min<std::size_t>(vertexCount, std::size_t{1} << 16));
    std::vector<unsigned char> drawn(edges.count());
    // Room for every point and line there can be: no more than the vertex and edge lumps hold.
    plan.points.reserve(pointOf.size());
    plan.lines.reserve(edges.count());
    const auto newPoint = [&](std::uint16_t vertex) {
        if (vertex >= vertexCount)
            damaged("an edge points past the vertex table");
        const char* at = vertices.record(vertex);
        const float x = floatAt(at);
        const float y = floatAt(at + 4);
        if (!std::isfinite(x) || !std::isfinite(y))
            damaged("a vertex is not a number");
        plan.points.push_back({x, y});
        pointOf[vertex] = static_cast<std::uint32_t>(plan.points.size());
    };

    const char* face = faces.record(static_cast<std::size_t>(firstFace));
    const char* const end = face + static_cast<std::size_t>(faceCount) * kFaces.recordSize;
    for (std::size_t counted = 0; face < end; face += kFaces.recordSize, ++counted) {
        if ((counted & 0x3FFF) == 0x3FFF)
            checkCancel(cancel);
        const std::uint16_t planeNumber = uint16At(face);
        if (planeNumber >= planeCount)
            damaged("a face points past the plane table");
        if (!(floorSides[planeNumber] & (int16At(face + 2) != 0 ? 2 : 1)))
            continue;
        const std::int32_t firstEdge = int32At(face + 4);
        const std::int16_t edgesOfFace = int16At(face + 8);
        if (firstEdge < 0 || edgesOfFace < 0 ||
            static_cast<std::uint64_t>(firstEdge) + static_cast<std::uint64_t>(edgesOfFace) >
                surfaceEdgeCount)
            damaged("a face's edges lie outside the surface edge table");
        const char* surfaceEdge = surfaceEdges.record(static_cast<std::size_t>(firstEdge));
        for (std::int16_t e = 0; e < edgesOfFace; ++e, surfaceEdge += kSurfaceEdges.recordSize) {
            const std::int32_t named = int32At(surfaceEdge);
            // The magnitude as unsigned, so the most negative number is no exception.
            const std::uint32_t index =
                named < 0 ? 0u - static_cast<std::uint32_t>(named) : static_cast<std::uint32_t>(named);
            if (index >= edgeCount)
                damaged("a surface edge points past the edge table");
            if (drawn[index])
                continue;
            drawn[index] = 1;
            const char* edge = edges.record(index);
            const std::uint16_t from = uint16At(edge);
            const std::uint16_t to = uint16At(edge + 2);
            if (from >= pointOf.size() || pointOf[from] == 0)
                newPoint(from);
            if (to >= pointOf.size() || pointOf[to] == 0)
                newPoint(to);
            plan.lines.push_back(
                {static_cast<std::uint16_t>(pointOf[from] - 1), static_cast<std::uint16_t>(pointOf[to] - 1)});
        }
    }
}

CardResult readCard(Source& source, std::uint64_t length, const std::atomic<bool>* cancel) {
    CardResult result;
    try {
        if (length < kBspHeaderSize)
            damaged("it ends inside its header");
        char header[kBspHeaderSize];
        source.read(0, header, kBspHeaderSize);
        if (std::memcmp(header, "IBSP", 4) != 0)
            damaged("it does not begin with IBSP");
        const std::int32_t version = int32At(header + 4);
        if (version != kVersion)
            damaged("it is version " + std::to_string(version) + "; Quake 2 maps are version " +
                    std::to_string(kVersion));
        checkCancel(cancel);
        {
            const Lump entities = Lump::read(source, header, length, kEntities);
            readEntities(std::string_view(entities.data(), entities.size()), result.card);
        }
        checkCancel(cancel);
        const Lump models = Lump::read(source, header, length, kModels);
        const Lump faces = Lump::read(source, header, length, kFaces);
        const Lump planes = Lump::read(source, header, length, kPlanes);
        const Lump vertices = Lump::read(source, header, length, kVertices);
        const Lump edges = Lump::read(source, header, length, kEdges);
        const Lump surfaceEdges = Lump::read(source, header, length, kSurfaceEdges);
        checkCancel(cancel);
        readWorld(models, faces, planes, vertices, edges, surfaceEdges, result.card, cancel);
    } catch (const NoCard& none) {
        result.card = MapCard{};
        result.reason = none.reason;
    } catch (const std::bad_alloc&) {
        result.card = MapCard{};
        result.reason = "its file cannot be read: out of memory";
    }
    return result;
}

std::string openFailureReason(const native::InputFile& file) {
    switch (file.failure()) {
    case native::OpenFailure::Missing:
        return "its file is missing";
    case native::OpenFailure::Folder:
        return "its file is a folder";
    case native::OpenFailure::NotPlain:
        return "its file is not a plain file";
    case native::OpenFailure::Denied:
        return "its file cannot be read: access denied";
    case native::OpenFailure::Other:
    case native::OpenFailure::None:
        break;
    }
    return "its file cannot be read: " + file.systemText();
}

} // namespace

std::string weaponName(std::string_view classname) {
    for (const Weapon& weapon : kWeapons)
        if (classname == weapon.classname)
            return weapon.name;
    return std::string(classname);
}

CardResult ReadMapCard(const std::filesystem::path& path, std::uint64_t offset, std::uint64_t length,
                       const std::atomic<bool>* cancel) {
    native::InputFile file = native::InputFile::open(path);
    if (!file.isOpen()) {
        CardResult result;
        result.reason = openFailureReason(file);
        return result;
    }
    if (offset > file.size() || length > file.size() - offset) {
        CardResult result;
        result.reason = std::string(kDamagedMap) + "its archive entry runs past the end of the archive";
        return result;
    }
    FileSource source(file, offset);
    return readCard(source, length, cancel);
}

CardResult ReadMapCard(const std::filesystem::path& path, const std::atomic<bool>* cancel) {
    native::InputFile file = native::InputFile::open(path);
    if (!file.isOpen()) {
        CardResult result;
        result.reason = openFailureReason(file);
        return result;
    }
    FileSource source(file, 0);
    return readCard(source, file.size(), cancel);
}

CardResult ReadMapCardFromBytes(std::string_view bytes) {
    MemorySource source(bytes);
    return readCard(source, bytes.size(), nullptr);
}

} // namespace rd
