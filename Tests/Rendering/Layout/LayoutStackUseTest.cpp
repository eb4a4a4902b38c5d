// The deepest tree that the reader accepts is laid out and drawn on a small stack.
#include <gtest/gtest.h>
#include <pthread.h>

#include <functional>

#include "PlacedNodes.hpp"
#include "Rendering/Images/PngEncoder.hpp"
#include "Rendering/Renderer.hpp"
#include "ViewKit/TreeJson.hpp"

namespace rendering {
namespace {

using namespace viewkit;

#if defined(__SANITIZE_ADDRESS__)
constexpr std::size_t kStack = 4096 * 1024;  // instrumented frames are many times as large
#else
constexpr std::size_t kStack = 384 * 1024;
#endif

/// Runs it on a thread whose stack has that size: more would end the program.
void runOnStack(std::size_t bytes, std::function<void()> work) {
  pthread_attr_t attributes;
  ASSERT_EQ(pthread_attr_init(&attributes), 0);
  ASSERT_EQ(pthread_attr_setstacksize(&attributes, bytes), 0);
  const auto start = [](void* given) -> void* {
    (*static_cast<std::function<void()>*>(given))();
    return nullptr;
  };
  pthread_t thread{};
  ASSERT_EQ(pthread_create(&thread, &attributes, start, &work), 0);
  ASSERT_EQ(pthread_join(thread, nullptr), 0);
  pthread_attr_destroy(&attributes);
}

View modified(View view, int i) {
  switch (i % 5) {
    case 0:
      return view.padding(0.01);
    case 1:
      return view.frame(FlexibleFrame{.minWidth = 1, .maxWidth = 500});
    case 2:
      return view.fixedSize(false, i % 2 == 0);
    case 3:
      return view.aspectRatio(1.1, ImageElement::ContentMode::fit);
    default:
      return view.frame({.width = kWidth * 0.999});
  }
}

View deepest() {
  const TreeLimits limits;
  View view = Text("leaf").lineLimit(1);
  std::size_t modifiers = 0;
  for (std::size_t level = 1; level < limits.depth; ++level) {
    const View beside = Text("words").lineLimit(1).minimumScaleFactor(0.5);
    view = level % 3 == 0   ? View{Fitting{view, beside}}
           : level % 3 == 1 ? View{HStack{{}, view, beside}}
                            : View{VStack{{}, view, beside}};
    const std::size_t share = limits.pathModifiers * level / (limits.depth - 1);
    for (; modifiers < share; ++modifiers) view = modified(view, static_cast<int>(modifiers));
  }
  return view;
}

TEST(LayoutStackUse, TheDeepestTreeNeedsLittleStack) {
  foundation::JsonWriter writer;
  writeView(writer, deepest());
  runOnStack(kStack, [&] {
    const auto json = foundation::parseJson(writer.text(), 256);
    ASSERT_TRUE(json.has_value());
    const auto view = readView(*json);
    ASSERT_TRUE(view.has_value()) << view.error();
    const LayoutTree tree = placed(*view, {364, 382});
    EXPECT_GT(tree.root.frame.width, 0);
  });
}

/// A view that each level covers, shows through, throws and cuts, as far as a path may be modified.
View deepestPicture() {
  const TreeLimits limits;
  View view = Text("leaf").lineLimit(1);
  for (std::size_t level = 1; level < limits.depth; ++level) {
    view = ZStack{{}, view, Circle()}
               .opacity(0.99)
               .shadow({.radius = 1, .x = 1})
               .clip(CapsuleShape{})
               .padding(0.1);
  }
  return view;
}

TEST(LayoutStackUse, TheDeepestTreeIsDrawnOnLittleStack) {
  const RenderOptions options{.size = {60, 40}, .scale = 1};
  for (const View& view : {deepest(), deepestPicture()}) {
    Renderer renderer;
    runOnStack(kStack, [&] {
      const auto bitmap = renderer.bitmap(view, options);
      EXPECT_TRUE(bitmap && !encodePng(*bitmap).empty());
      EXPECT_TRUE(renderer.svg(view, options));
      EXPECT_TRUE(renderer.plainText(view, options));
      EXPECT_TRUE(renderer.placedDump(view, options));
      EXPECT_TRUE(renderer.accessibilityTree(view, options));
    });
  }
}

}  // namespace
}  // namespace rendering
