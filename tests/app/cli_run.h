// Commands run as functions, over a folder of their own with real element sets.
#pragma once

#include "tests/support/test_services.h"
#include "tests/support/testing.h"

namespace vantrace {

// Element sets as CelesTrak publishes them; the third satellite came down in August 2026.
inline constexpr std::string_view issElements =
    "ISS (ZARYA)             \r\n"
    "1 25544U 98067A   26233.53315667  .00008864  00000+0  16558-3 0  9995\r\n"
    "2 25544  51.6331 336.6713 0007673  69.9303 290.2511 15.49551867581884\r\n";
inline constexpr std::string_view goesElements =
    "GOES 19                 \r\n"
    "1 60133U 24119A   26233.46726780 -.00000251  00000+0  00000+0 0  9993\r\n"
    "2 60133   0.0331 312.1137 0000376 254.7137 215.9769  1.00273085  7614\r\n";
inline constexpr std::string_view fallingElements =
    "HYPERVIEW 1G (RS66S)    \r\n"
    "1 61772U 24199AP  26218.24785971  .00629890  18200-3  11885-2 0  9993\r\n"
    "2 61772  97.2667 101.1800 0006501 147.6231 212.5449 16.00806527142604\r\n";

struct CliResult {
    int status = -1;
    std::string out;
    std::string err;

    Texts lines() const;
};

using CsvRow = Texts;

/// The records of RFC 4180; the heading is the first.
std::vector<CsvRow> csvRows(std::string_view text);

/// A column of all records but the heading.
Texts csvColumn(const CliResult& result, std::string_view name);
std::vector<double> csvFigures(const CliResult& result, std::string_view name);

/// The words of a command as a shell takes them: blanks between, some of them in double quotes.
Texts wordsOf(std::string_view command);

/// It is 2026-08-21 20:00 UTC, 22:00 local time.
class CliTest : public ::testing::Test {
  protected:
    CliTest();

    /// Runs with --data and --site, if those aren't given; the input is standard input.
    CliResult run(Texts arguments, std::string_view input = {});
    /// The same with --format csv.
    CliResult runCsv(Texts arguments, std::string_view input = {});
    /// Runs with just these arguments.
    CliResult runBare(const Texts& arguments, std::string_view input = {});

    /// The same, for one that ends with this status and without output, and tells all these parts.
    void expectFailure(int status, const Texts& arguments, const Texts& parts);

    TestServices fakes;
    TemporaryFolder folder;
    const std::string site = "52,5,10";
};

}  // namespace vantrace
