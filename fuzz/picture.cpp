// Any bytes as a picture file: read as one or not, in bounded memory.

#include <sys/mman.h>
#include <unistd.h>

#include "fuzz/stage.h"
#include "host/core/picture_file.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    static const int file = memfd_create("picture", 0);
    static const std::string path = "/proc/self/fd/" + std::to_string(file);
    const auto length = static_cast<ssize_t>(size);
    fuzz::must(ftruncate(file, 0) == 0 && pwrite(file, data, size, 0) == length, "the file can be written");
    const auto picture = host::read_picture(path);
    if (!picture) return 0;
    fuzz::must(picture->argb.size() == std::size_t{picture->width} * picture->height, "every pixel is there");
    fuzz::must(picture->width > 0 && picture->height > 0, "a picture has a size");
    return 0;
}
