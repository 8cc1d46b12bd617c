// A PDF is complete or it is not there; characters that a font lacks have a width all the same.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <random>

#include "adapters/pdf/pdf_fonts.h"
#include "adapters/pdf/pdf_job.h"
#include "support/automation/error.h"

namespace vmgv {
namespace {

struct PdfTest : testing::Test {
  PdfTest() { std::filesystem::create_directories(folder / "taken"); }
  ~PdfTest() override { std::filesystem::remove_all(folder); }
  std::string file(const char* name) const { return (folder / name).string(); }
  void print(const std::string& name, bool finishes) const {
    const auto job = startPdf(name, {}, "Τίτλος \xFF");
    job->startPage().text(10, 20, "Ελληνικά \xFF and more", {"DejaVu Sans", 9}, 0);
    job->endPage();
    if (finishes) job->finish();
  }
  std::size_t files() const {
    return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(folder), {}));
  }

  const std::filesystem::path folder =
      std::filesystem::temp_directory_path() / ("vmg_pdf_" + std::to_string(std::random_device{}()));
};

TEST_F(PdfTest, IsCompleteOrNotThere) {
  std::ofstream(file("old.pdf")) << "old";
  print(file("old.pdf"), false);
  EXPECT_EQ(std::filesystem::file_size(file("old.pdf")), 3u);
  print(file("old.pdf"), true);
  std::string begin;
  std::ifstream(file("old.pdf")) >> begin;
  EXPECT_TRUE(begin.starts_with("%PDF-")) << begin;
  std::filesystem::create_symlink("/dev/full", file("full.pdf.part"));  // a disk without room
  for (const std::string& name : {file("none/x.pdf"), file("taken"), file("full.pdf")}) {
    try {
      print(name, true);
      ADD_FAILURE() << name;
    } catch (const Error& error) {
      EXPECT_EQ(error.number(), 75);
      EXPECT_NE(std::string(error.description()).find(name), std::string::npos);
    }
  }
  EXPECT_EQ(files(), 2u);
}

TEST_F(PdfTest, FontsMeasureWhatTheyShow) {
  const auto fonts = makePdfFonts();
  const auto normal = fonts->metrics({"DejaVu Sans", 10}), bold = fonts->metrics({"DejaVu Sans", 10, true}),
             missing = fonts->metrics({"No such family", 10}), twice = fonts->metrics({"DejaVu Sans", 20});
  for (const char32_t character : U"aΩ…\uFFFD\U0001F600") {
    EXPECT_GT(missing->advance(character), 0) << static_cast<unsigned>(character);
    EXPECT_NEAR(twice->advance(character), 2 * normal->advance(character), 1e-4);
  }
  // The font's own table, in 2048ths of its size.
  EXPECT_NEAR(normal->advance(U'a'), 1255 * 10 / 2048.0, 0.01);
  EXPECT_GT(bold->advance(U'a'), normal->advance(U'a'));
  EXPECT_NEAR(normal->ascent() + normal->descent(), 11.64, 0.02);
}

}  // namespace
}  // namespace vmgv
