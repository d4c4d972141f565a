// korvane_floor LOD0 LOD1 OUT AUTOLOD0 AUTOLOD1
//
// The least a program can do for the author's job, written for this machine
// and nothing else: read both sources whole, find their line ends, look the
// few keys up, rename "LOD 0" in place, and write the combined file in 1 MB
// pieces. No stores, no rules beyond what these sources need. Its time and
// memory are the floor that the benchmark holds Korvane against; its output
// must equal Korvane's byte for byte.

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

namespace {

struct Source {
  char* bytes = nullptr;
  std::size_t size = 0;
};

Source readWhole(const char* path) {
  int fd = open(path, O_RDONLY);
  struct stat info {};
  if (fd < 0 || fstat(fd, &info) != 0) std::exit(1);
  Source source;
  source.bytes = static_cast<char*>(std::malloc(static_cast<std::size_t>(info.st_size) + 1));
  for (ssize_t n; (n = read(fd, source.bytes + source.size,
                            static_cast<std::size_t>(info.st_size) + 1 - source.size)) > 0;) {
    source.size += static_cast<std::size_t>(n);
  }
  close(fd);
  return source;
}

// Where each line starts: what any program that edits lines must know.
std::vector<std::uint32_t> lineStarts(const Source& source) {
  std::vector<std::uint32_t> starts;
  starts.reserve(source.size / 32);
  const char* p = source.bytes;
  const char* end = p + source.size;
  starts.push_back(0);
  while (const void* cr = std::memchr(p, '\r', static_cast<std::size_t>(end - p))) {
    p = static_cast<const char*>(cr) + 2;
    if (p < end) starts.push_back(static_cast<std::uint32_t>(p - source.bytes));
  }
  return starts;
}

const char* find(const Source& source, const char* from, const char* text) {
  return static_cast<const char*>(
      memmem(from, static_cast<std::size_t>(source.bytes + source.size - from), text, std::strlen(text)));
}

const char* lineEnd(const char* p) {
  return static_cast<const char*>(std::strchr(p, '\r'));
}

class Output {
 public:
  explicit Output(const char* path)
      : m_fd(open(path, O_WRONLY | O_CREAT | O_TRUNC, 0644)), m_buffer(1 << 20) {}
  ~Output() {
    flush();
    close(m_fd);
  }
  void put(const char* data, std::size_t size) {
    while (size > 0) {
      std::size_t n = std::min(size, m_buffer.size() - m_used);
      std::memcpy(m_buffer.data() + m_used, data, n);
      m_used += n;
      data += n;
      size -= n;
      if (m_used == m_buffer.size()) flush();
    }
  }
  void put(const std::string& text) { put(text.data(), text.size()); }

 private:
  void flush() {
    if (m_used > 0 && write(m_fd, m_buffer.data(), m_used) != static_cast<ssize_t>(m_used)) std::exit(1);
    m_used = 0;
  }
  int m_fd;
  std::vector<char> m_buffer;
  std::size_t m_used = 0;
};

}  // namespace

int main(int argc, char** argv) {
  if (argc != 6) return 2;
  Source lod0 = readWhole(argv[1]);
  Source lod1 = readWhole(argv[2]);
  lod0.bytes[lod0.size] = '\0';
  lod1.bytes[lod1.size] = '\0';
  std::size_t lines = lineStarts(lod0).size() + lineStarts(lod1).size();

  // The lookups of both openings, and the scans of the save.
  const char* keys[] = {"TextureMap=", "ColorKey=", "NumberOfLOD="};
  for (const char* key : keys) {
    if (!find(lod0, lod0.bytes, key)) return 1;
  }
  if (!find(lod1, lod1.bytes, "NumberOfSurfaces=")) return 1;
  const char* textureMap = find(lod0, lod0.bytes, "TextureMap=");
  const char* colorKey = find(lod0, lod0.bytes, "ColorKey=");
  const char* numberOfLOD = find(lod0, lod0.bytes, "NumberOfLOD=");
  const char* marker = find(lod1, lod1.bytes, "\r\n[LOD 0]\r\n") + 2;
  for (char* p = const_cast<char*>(marker); (p = const_cast<char*>(find(lod1, p, "LOD 0"))) != nullptr;
       p += 5) {
    p[4] = '1';
  }

  Output out(argv[3]);
  const char* p = lod0.bytes;
  auto copyTo = [&](const char* end) {
    out.put(p, static_cast<std::size_t>(end - p));
    p = end;
  };
  copyTo(textureMap);
  out.put(std::string("TextureMap=") + "bench_hull.tga");
  p = lineEnd(p);
  copyTo(colorKey);
  out.put(std::string("ColorKey=") + "255,0,255");
  p = lineEnd(p);
  copyTo(numberOfLOD);
  out.put("NumberOfLOD=2\r\nUseAutoLOD=T\r\nAutoLOD#0=" + std::string(argv[4]) + "\r\nAutoLOD#1=" + argv[5]);
  p = lineEnd(p);
  copyTo(lod0.bytes + lod0.size);
  out.put(marker, static_cast<std::size_t>(lod1.bytes + lod1.size - marker));
  return lines > 0 ? 0 : 1;
}
