// PNG by libpng, row by row; interlaced pictures need the whole of it at once and may be smaller.
// Chunks that say nothing of the pixels are passed over unread: compressed texts and colour
// profiles take long, and profiles that are slightly wrong bring warnings.
#include <png.h>

#include <csetjmp>
#include <cstring>

#include "Rendering/Images/ImageDecoderFormats.hpp"
#include "Rendering/Images/ImageDecoderScale.hpp"

namespace rendering {

namespace {

constexpr int kAllAncillary = -1;  // but tRNS, which is needed

struct Input {
  std::string_view rest;
};

void readBytes(png_structp png, png_bytep to, png_size_t count) {
  auto& input = *static_cast<Input*>(png_get_io_ptr(png));
  if (count > input.rest.size()) png_error(png, "end of file");
  std::memcpy(to, input.rest.data(), count);
  input.rest.remove_prefix(count);
}

void fail(png_structp png, png_const_charp) {
  png_longjmp(png, 1);
}

/// Everything that lives across the library's jumps.
struct Decoding {
  Input input;
  png_structp png = nullptr;
  png_infop info = nullptr;
  std::optional<ShrinkingImage> image;
  std::vector<std::uint8_t> bytes;
  std::vector<std::uint8_t*> rows;
  ~Decoding() { png_destroy_read_struct(&png, &info, nullptr); }
};

void expandToRgba(png_structp png) {
  png_set_expand(png);
  png_set_strip_16(png);
  png_set_gray_to_rgb(png);
  png_set_add_alpha(png, 0xFF, PNG_FILLER_AFTER);
}

// No object with a destructor is made between setjmp and the calls that may jump.
std::optional<DecodedImage> decode(Decoding& d, Size wanted) {
  if (setjmp(png_jmpbuf(d.png))) return std::nullopt;
  png_read_info(d.png, d.info);
  const std::uint64_t width = png_get_image_width(d.png, d.info);
  const std::uint64_t height = png_get_image_height(d.png, d.info);
  const auto order = png_get_interlace_type(d.png, d.info) != PNG_INTERLACE_NONE
                         ? PixelOrder::progressive
                         : PixelOrder::rowByRow;
  if (!isWithinLimits(width, height, order)) return std::nullopt;
  expandToRgba(d.png);
  const int passes = png_set_interlace_handling(d.png);
  png_read_update_info(d.png, d.info);
  if (png_get_rowbytes(d.png, d.info) != width * 4) return std::nullopt;
  const int w = static_cast<int>(width);
  const int h = static_cast<int>(height);
  d.image.emplace(w, h, shrinkFactor(w, h, wanted));
  if (passes > 1) {
    d.bytes.resize(width * height * 4);
    for (std::uint64_t y = 0; y < height; ++y) d.rows.push_back(d.bytes.data() + y * width * 4);
    png_read_image(d.png, d.rows.data());
    for (std::uint8_t* row : d.rows) d.image->row(row);
  } else {
    d.bytes.resize(width * 4);
    for (std::uint64_t y = 0; y < height; ++y) {
      png_read_row(d.png, d.bytes.data(), nullptr);
      d.image->row(d.bytes.data());
    }
  }
  png_read_end(d.png, nullptr);
  return d.image->finish();
}

}  // namespace

bool isPng(std::string_view bytes) {
  return bytes.starts_with("\x89PNG\r\n\x1A\n");
}

std::optional<DecodedImage> decodePng(std::string_view bytes, Size wanted) {
  Decoding d{{bytes}};
  d.png = png_create_read_struct(PNG_LIBPNG_VER_STRING, nullptr, fail, fail);
  if (!d.png) return std::nullopt;
  d.info = png_create_info_struct(d.png);
  if (!d.info) return std::nullopt;
  png_set_keep_unknown_chunks(d.png, PNG_HANDLE_CHUNK_NEVER, nullptr, kAllAncillary);
  png_set_read_fn(d.png, &d.input, readBytes);
  return decode(d, wanted);
}

}  // namespace rendering
