#include "Resident/RendererPictureMaker.hpp"

#include <cmath>
#include <map>
#include <tuple>
#include <utility>
#include <vector>

#include "Resident/ImageStamps.hpp"
#include "Resident/RedactedPictures.hpp"

namespace resident {

using surfaces::Demand;
using surfaces::Medium;
using surfaces::Picture;

namespace {

bool isSame(const Demand& a, const Demand& b) {
  const auto parts = [](const Demand& demand) {
    const auto& options = demand.options;
    return std::tie(demand.medium,
                    demand.columns,
                    options.size,
                    options.scale,
                    options.appearance,
                    options.mode,
                    options.tint,
                    options.showsBackground,
                    options.cornerRadius,
                    options.redaction,
                    options.direction,
                    options.container);
  };
  return parts(a) == parts(b);
}

/// Nothing, in the size that was asked for as far as a picture may have it.
rendering::Bitmap blank(const rendering::RenderOptions& options) {
  constexpr double kLongestSide = 4096;
  const auto side = [&](double points) {
    const double pixels = std::round(points * options.scale);
    return static_cast<int>(pixels >= 1 && pixels <= kLongestSide ? pixels : 1);
  };
  rendering::Bitmap bitmap;
  bitmap.width = bitmap.stride = side(options.size.width);
  bitmap.height = side(options.size.height);
  bitmap.pixels.resize(static_cast<std::size_t>(bitmap.width) *
                       static_cast<std::size_t>(bitmap.height));
  return bitmap;
}

void fade(rendering::Bitmap& bitmap, double opacity) {
  // Premultiplied: every channel is multiplied alike, two at a time.
  const auto factor = static_cast<std::uint32_t>(std::lround(opacity * 256));
  for (std::uint32_t& pixel : bitmap.pixels) {
    const std::uint32_t odd = ((pixel >> 8) & 0x00FF00FF) * factor & 0xFF00FF00;
    const std::uint32_t even = (pixel & 0x00FF00FF) * factor >> 8 & 0x00FF00FF;
    pixel = odd | even;
  }
}

}  // namespace

struct RendererPictureMaker::Studio {
  explicit Studio(std::string folder) : kept(std::move(folder)) {}

  struct Last {
    DrawRequest request;
    std::vector<ImageStamp> images;
  };

  rendering::Renderer renderer;
  RedactedPictures kept;
  std::map<std::string, Last> drawn;

  std::shared_ptr<Picture> paint(const DrawRequest& request) {
    const auto& options = request.demand.options;
    auto picture = std::make_shared<Picture>();
    picture->isRedacted = options.redaction.privacy;
    // What the limits of a picture refuse stays blank.
    const auto tree = renderer.place(request.view, options);
    if (tree) {
      picture->elements = rendering::accessibleElements(*tree, {.redaction = options.redaction});
    }
    switch (request.demand.medium) {
      case Medium::bitmap:
        if (!tree || !renderer.draw(*tree, options, picture->bitmap)) {
          picture->bitmap = blank(options);
        }
        if (request.opacity < 1) fade(picture->bitmap, request.opacity);
        break;
      case Medium::svg:
        picture->text = renderer.svg(request.view, options).value_or("");
        break;
      case Medium::plainText:
        picture->text =
            renderer.plainText(request.view, options, request.demand.columns).value_or("");
        break;
    }
    return picture;
  }

  std::shared_ptr<const Picture> paintIfChanged(const DrawRequest& request) {
    if (request.isPassing) return paint(request);
    auto images = imageStamps(request.view, request.demand.options.container);
    const auto last = drawn.find(request.slot.key());
    if (last != drawn.end() && !request.isForced) {
      const DrawRequest& before = last->second.request;
      if (before.view == request.view && isSame(before.demand, request.demand) &&
          before.opacity == request.opacity && last->second.images == images) {
        return nullptr;
      }
    }
    auto picture = paint(request);
    drawn.insert_or_assign(request.slot.key(), Last{request, std::move(images)});
    return picture;
  }
};

RendererPictureMaker::RendererPictureMaker(Loop& loop, std::string folder)
    : studio_(std::make_unique<Studio>(std::move(folder))), worker_(loop, "picture maker") {}

RendererPictureMaker::~RendererPictureMaker() = default;

void RendererPictureMaker::draw(Urgency urgency,
                                DrawRequest request,
                                std::function<void(Drawn)> then) {
  std::string key = request.isPassing ? std::string{} : request.slot.key();
  worker_.submit(urgency,
                 std::move(key),
                 [this, request = std::move(request), then = std::move(then)]() -> Continuation {
                   const auto begin = std::chrono::steady_clock::now();
                   Drawn drawn{.picture = studio_->paintIfChanged(request)};
                   drawn.took = std::chrono::duration_cast<std::chrono::microseconds>(
                       std::chrono::steady_clock::now() - begin);
                   return [drawn = std::move(drawn), then] { then(drawn); };
                 });
}

void RendererPictureMaker::keep(DrawRequest redacted) {
  std::string key = "keep " + redacted.slot.key();
  worker_.submit(
      Urgency::preview, std::move(key), [this, redacted = std::move(redacted)]() -> Continuation {
        const auto picture = studio_->paint(redacted);
        studio_->kept.save(redacted.slot, redacted.demand, picture->bitmap);
        return {};
      });
}

void RendererPictureMaker::recall(Slot slot,
                                  const Demand& demand,
                                  std::function<void(std::shared_ptr<const Picture>)> then) {
  worker_.submit(Urgency::person,
                 {},
                 [this, slot = std::move(slot), demand, then = std::move(then)]() -> Continuation {
                   std::shared_ptr<Picture> picture;
                   if (auto bitmap = studio_->kept.load(slot, demand)) {
                     picture = std::make_shared<Picture>();
                     picture->bitmap = *std::move(bitmap);
                   }
                   return [picture, then] { then(picture); };
                 });
}

void RendererPictureMaker::forget(const std::string& id) {
  worker_.submit(Urgency::preview, {}, [this, id]() -> Continuation {
    std::erase_if(studio_->drawn,
                  [&](const auto& slot) { return slot.first.starts_with(id + "/"); });
    studio_->kept.remove(id);
    return {};
  });
}

}  // namespace resident
