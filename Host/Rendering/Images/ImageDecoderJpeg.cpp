// JPEG by libjpeg, which scales by eighths while decoding. It fills what is missing with grey and
// warns; whoever sees a card wants all of it or none, so a warning is as bad as an error.
#include <csetjmp>
#include <cstddef>
#include <cstdio>

#include "Rendering/Graphics/PainterPixels.hpp"
#include "Rendering/Images/ImageDecoderFormats.hpp"
#include "Rendering/Images/ImageDecoderScale.hpp"

// Uses the standard headers above without naming them.
#include <jpeglib.h>

namespace rendering {

namespace {

struct ErrorHandler {
  jpeg_error_mgr base;
  std::jmp_buf jump;
};

void fail(j_common_ptr info) {
  std::longjmp(reinterpret_cast<ErrorHandler*>(info->err)->jump, 1);
}
void ignoreMessage(j_common_ptr) {}
void failOnWarning(j_common_ptr info, int level) {
  if (level < 0) fail(info);
}

/// Called now and then within a scan.
void failOnManyScans(j_common_ptr info) {
  if (reinterpret_cast<j_decompress_ptr>(info)->input_scan_number > limits::kImageScans) fail(info);
}

struct Decoding {
  jpeg_decompress_struct info{};
  ErrorHandler errors{};
  jpeg_progress_mgr progress{};
  std::optional<ShrinkingImage> image;
  std::vector<std::uint8_t> line;
  std::vector<std::uint8_t> rgba;
  ~Decoding() { jpeg_destroy_decompress(&info); }
};

/// Four inks, stored inverted as usual, to three lights.
void fromInks(const std::uint8_t* from, std::uint8_t* to) {
  for (int i = 0; i < 3; ++i) to[i] = static_cast<std::uint8_t>(scaleByte(from[i], from[3]));
}

std::optional<DecodedImage> decode(Decoding& d, std::string_view bytes, Size wanted) {
  if (setjmp(d.errors.jump)) return std::nullopt;
  jpeg_create_decompress(&d.info);
  d.progress.progress_monitor = failOnManyScans;
  d.info.progress = &d.progress;
  jpeg_mem_src(&d.info, reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size());
  if (jpeg_read_header(&d.info, TRUE) != JPEG_HEADER_OK) return std::nullopt;
  const auto order =
      jpeg_has_multiple_scans(&d.info) != 0 ? PixelOrder::progressive : PixelOrder::rowByRow;
  if (!isWithinLimits(d.info.image_width, d.info.image_height, order)) return std::nullopt;
  const bool inks = d.info.jpeg_color_space == JCS_CMYK || d.info.jpeg_color_space == JCS_YCCK;
  d.info.out_color_space = inks ? JCS_CMYK : JCS_RGB;
  const int sourceWidth = static_cast<int>(d.info.image_width);
  const int sourceHeight = static_cast<int>(d.info.image_height);
  const int factor = shrinkFactor(sourceWidth, sourceHeight, wanted);
  int eighth = 1;
  while (eighth < 8 && eighth * 2 <= factor) eighth *= 2;
  d.info.scale_num = 1;
  d.info.scale_denom = static_cast<unsigned>(eighth);
  jpeg_start_decompress(&d.info);
  const int width = static_cast<int>(d.info.output_width);
  const int height = static_cast<int>(d.info.output_height);
  const int channels = inks ? 4 : 3;
  if (d.info.output_components != channels) return std::nullopt;
  d.image.emplace(width, height, shrinkFactor(width, height, wanted));
  d.line.resize(static_cast<std::size_t>(width) * 4);
  d.rgba.assign(static_cast<std::size_t>(width) * 4, 255);
  while (d.info.output_scanline < d.info.output_height) {
    JSAMPROW rows[1] = {d.line.data()};
    if (jpeg_read_scanlines(&d.info, rows, 1) != 1) return std::nullopt;
    for (int x = 0; x < width; ++x) {
      const std::uint8_t* from = d.line.data() + static_cast<std::ptrdiff_t>(x) * channels;
      std::uint8_t* to = d.rgba.data() + static_cast<std::ptrdiff_t>(x) * 4;
      if (inks) {
        fromInks(from, to);
      } else {
        to[0] = from[0];
        to[1] = from[1];
        to[2] = from[2];
      }
    }
    d.image->row(d.rgba.data());
  }
  jpeg_finish_decompress(&d.info);
  DecodedImage image = d.image->finish();
  image.sourceWidth = sourceWidth;
  image.sourceHeight = sourceHeight;
  return image;
}

}  // namespace

bool isJpeg(std::string_view bytes) {
  return bytes.starts_with("\xFF\xD8\xFF");
}

std::optional<DecodedImage> decodeJpeg(std::string_view bytes, Size wanted) {
  Decoding d;
  d.info.err = jpeg_std_error(&d.errors.base);
  d.errors.base.error_exit = fail;
  d.errors.base.output_message = ignoreMessage;
  d.errors.base.emit_message = failOnWarning;
  return decode(d, bytes, wanted);
}

}  // namespace rendering
