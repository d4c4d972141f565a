#pragma once
// Writes the two sources of a benchmark job: a LOD 0 source with one LOD and
// a LOD 1 source, each with a realistic head (material, LOD information, the
// "[LOD 0]" section) and N geometry lines behind it: surface heads, key lines
// and long vertex and face rows, all ending in CR LF; the LOD 1 source's rows
// each hold one "LOD 0". The content depends only
// on N and the seed, so every run and every machine sees the same bytes.
// Header-only so that the regression test can share it without a library.

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

namespace korvane::bench {

// What a generated source holds, for checking the job's output.
struct KobSourceInfo {
  std::uint64_t bytes = 0;
  std::uint64_t geometryLines = 0;
  std::uint64_t markerOffset = 0;  // where the line "[LOD 0]" starts
};

inline constexpr std::string_view kLod0TextureMap = "bench_hull.tga";
inline constexpr std::string_view kLod0ColorKey = "255,0,255";
inline constexpr std::string_view kLod1TextureMap = "bench_hull_lod1.tga";
inline constexpr std::string_view kLod1RowTail = " ; LOD 0";

namespace detail {

// splitmix64: tiny, fast, and the same on every standard library.
class Random {
 public:
  explicit Random(std::uint64_t seed) : m_state(seed) {}
  std::uint64_t next() {
    std::uint64_t z = (m_state += 0x9e3779b97f4a7c15ULL);
    z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9ULL;
    z = (z ^ (z >> 27)) * 0x94d049bb133111ebULL;
    return z ^ (z >> 31);
  }
  // A whole number from low to high, both included.
  std::int64_t between(std::int64_t low, std::int64_t high) {
    return low + static_cast<std::int64_t>(next() % static_cast<std::uint64_t>(high - low + 1));
  }

 private:
  std::uint64_t m_state;
};

// Buffers the text and writes it in large pieces: at 10^7 lines the
// generator should not take longer than the job it prepares.
class Writer {
 public:
  explicit Writer(const std::string& path)
      : m_file(std::fopen(path.c_str(), "wb")), m_buffer(new char[kFlushAt + kSlack]) {
    if (!m_file) throw std::runtime_error("cannot write " + path);
  }
  ~Writer() {
    if (m_file) std::fclose(m_file);
  }
  Writer(const Writer&) = delete;
  Writer& operator=(const Writer&) = delete;

  std::uint64_t written() const { return m_written + m_used; }

  Writer& text(std::string_view s) {
    if (m_used + s.size() > kFlushAt + kSlack - kNumberRoom) flush();
    if (s.size() > kFlushAt) {
      put(s.data(), s.size());
      m_written += s.size();
      return *this;
    }
    std::memcpy(m_buffer.get() + m_used, s.data(), s.size());
    m_used += s.size();
    return *this;
  }
  // Numbers are written straight into the buffer: a line is far shorter than
  // the slack kept behind the flush point.
  Writer& whole(std::int64_t value) {
    char digits[24];
    int n = 0;
    std::uint64_t magnitude =
        value < 0 ? 0 - static_cast<std::uint64_t>(value) : static_cast<std::uint64_t>(value);
    do {
      digits[n++] = static_cast<char>('0' + magnitude % 10);
      magnitude /= 10;
    } while (magnitude != 0);
    char* out = m_buffer.get() + m_used;
    if (value < 0) *out++ = '-';
    while (n > 0) *out++ = digits[--n];
    m_used = static_cast<std::size_t>(out - m_buffer.get());
    return *this;
  }
  // A real given in millionths, written with six decimals: "-12.345678".
  Writer& micro(std::int64_t millionths) {
    if (millionths < 0) {
      m_buffer[m_used++] = '-';
      millionths = -millionths;
    }
    whole(millionths / 1000000);
    char* out = m_buffer.get() + m_used;
    *out = '.';
    std::int64_t fraction = millionths % 1000000;
    for (int i = 6; i >= 1; --i) {
      out[i] = static_cast<char>('0' + fraction % 10);
      fraction /= 10;
    }
    m_used += 7;
    return *this;
  }
  Writer& endLine() {
    m_buffer[m_used++] = '\r';
    m_buffer[m_used++] = '\n';
    if (m_used >= kFlushAt) flush();
    return *this;
  }
  Writer& line(std::string_view s) { return text(s).endLine(); }

  void close() {
    flush();
    if (std::fclose(m_file) != 0) {
      m_file = nullptr;
      throw std::runtime_error("cannot finish writing");
    }
    m_file = nullptr;
  }

 private:
  static constexpr std::size_t kFlushAt = std::size_t{1} << 20;
  static constexpr std::size_t kSlack = 4096;
  static constexpr std::size_t kNumberRoom = 64;

  void put(const char* data, std::size_t size) {
    if (size != 0 && std::fwrite(data, 1, size, m_file) != size) throw std::runtime_error("write failed");
  }
  void flush() {
    put(m_buffer.get(), m_used);
    m_written += m_used;
    m_used = 0;
  }

  std::FILE* m_file;
  std::unique_ptr<char[]> m_buffer;
  std::size_t m_used = 0;
  std::uint64_t m_written = 0;
};

// One surface of lineCount lines (at least 1): a head, its keys, vertex rows,
// face rows and a blank line, cut to fit. Each row ends with rowTail.
inline void writeSurface(Writer& out, Random& random, std::int64_t surface, std::int64_t lineCount,
                         std::string_view rowTail) {
  // Head, three keys and the closing blank line: five lines besides the rows.
  std::int64_t rows = lineCount - 5;
  if (rows < 2) {
    // Too short for a surface: fill with key lines the program passes through.
    for (std::int64_t i = 0; i < lineCount; ++i) out.text("Smoothing=").whole(random.between(0, 1)).endLine();
    return;
  }
  std::int64_t vertices = (rows + 1) / 2;
  std::int64_t faces = rows - vertices;
  out.text("[LOD 0 - Surface ").whole(surface).text("]").endLine();
  out.line("Material=0");
  out.text("NumberOfVertices=").whole(vertices).endLine();
  out.text("NumberOfFaces=").whole(faces).endLine();
  for (std::int64_t v = 0; v < vertices; ++v) {
    out.text("Vertex").whole(v).text("=");
    for (int c = 0; c < 3; ++c) out.micro(random.between(-250000000, 250000000)).text(",");
    for (int c = 0; c < 3; ++c) out.micro(random.between(-1000000, 1000000)).text(",");
    out.micro(random.between(0, 1000000)).text(",").micro(random.between(0, 1000000)).text(rowTail).endLine();
  }
  for (std::int64_t f = 0; f < faces; ++f) {
    out.text("Face").whole(f).text("=");
    for (int c = 0; c < 3; ++c) out.whole(random.between(0, vertices - 1)).text(",");
    for (int c = 0; c < 3; ++c) out.micro(random.between(-1000000, 1000000)).text(",");
    out.micro(random.between(-250000000, 250000000)).text(rowTail).endLine();
  }
  out.line("");
}

// The geometry behind "[LOD 0]": exactly lineCount lines in the given number
// of surfaces. Sizes vary in pairs that balance, so the count of surfaces
// stays what the head says.
inline void writeGeometry(Writer& out, Random& random, std::int64_t lineCount, std::int64_t surfaces,
                          std::string_view rowTail) {
  std::int64_t base = lineCount / surfaces;
  std::int64_t jitter = 0;
  std::int64_t left = lineCount;
  for (std::int64_t surface = 0; surface < surfaces; ++surface) {
    std::int64_t size;
    if (surface + 1 == surfaces) {
      size = left;
    } else if (surface % 2 == 0) {
      jitter = random.between(-base / 2, base / 2);
      size = base + jitter;
    } else {
      size = base - jitter;
    }
    writeSurface(out, random, surface, size, rowTail);
    left -= size;
  }
}

inline std::int64_t surfaceCountFor(std::int64_t geometryLines) {
  return std::max<std::int64_t>(1, geometryLines / 500);
}

inline void writeObjectHead(Writer& out, std::string_view name) {
  out.line("; Korvane benchmark object");
  out.line("[Object]");
  out.text("Name=").text(name).endLine();
  out.line("Version=2");
  out.line("");
}

}  // namespace detail

// The LOD 0 source: one LOD, a ColorKey, geometryLines lines of geometry.
inline KobSourceInfo writeLod0Source(const std::string& path, std::int64_t geometryLines,
                                     std::uint64_t seed = 1) {
  detail::Writer out(path);
  detail::Random random(seed);
  std::int64_t surfaces = detail::surfaceCountFor(geometryLines);
  detail::writeObjectHead(out, "BenchHull");
  out.line("[Material - 0]");
  out.text("TextureMap=").text(kLod0TextureMap).endLine();
  out.text("ColorKey=").text(kLod0ColorKey).endLine();
  out.line("Ambient=0.200000,0.200000,0.200000");
  out.line("Diffuse=0.800000,0.800000,0.800000");
  out.line("Specular=0.100000,0.100000,0.100000");
  out.line("Shininess=12.000000");
  out.line("");
  out.line("[LOD Information]");
  out.line("NumberOfLOD=1");
  out.line("");
  KobSourceInfo info;
  info.markerOffset = out.written();
  out.line("[LOD 0]");
  out.text("NumberOfSurfaces=").whole(surfaces).endLine();
  out.line("");
  detail::writeGeometry(out, random, geometryLines, surfaces, "");
  info.bytes = out.written();
  info.geometryLines = static_cast<std::uint64_t>(geometryLines);
  out.close();
  return info;
}

// The LOD 1 source: a head of its own, which the job drops, then the marker
// and geometryLines lines of geometry, each row naming the LOD it was made
// from, so that the renaming has a "LOD 0" to turn in nearly every line.
inline KobSourceInfo writeLod1Source(const std::string& path, std::int64_t geometryLines,
                                     std::uint64_t seed = 2) {
  detail::Writer out(path);
  detail::Random random(seed);
  std::int64_t surfaces = detail::surfaceCountFor(geometryLines);
  detail::writeObjectHead(out, "BenchHullLow");
  out.line("[Material - 0]");
  out.text("TextureMap=").text(kLod1TextureMap).endLine();
  out.line("Diffuse=0.800000,0.800000,0.800000");
  out.line("");
  out.line("[LOD Information]");
  out.line("NumberOfLOD=1");
  out.line("");
  KobSourceInfo info;
  info.markerOffset = out.written();
  out.line("[LOD 0]");
  out.text("NumberOfSurfaces=").whole(surfaces).endLine();
  out.line("");
  detail::writeGeometry(out, random, geometryLines, surfaces, kLod1RowTail);
  info.bytes = out.written();
  info.geometryLines = static_cast<std::uint64_t>(geometryLines);
  out.close();
  return info;
}

}  // namespace korvane::bench
