// Writes engine output files in the layout that the shell reads, for measuring readers.
//
//   engine_output     plot-daily  FILE YEARS            20 series columns, one line a day
//   engine_output     plot-hourly FILE YEARS            15 series + 9 x 20 profile columns, 24 lines a day
//   engine_output     wasser      FILE YEARS COMPARTMENTS   yearly, monthly and daily blocks
//   engine_output     chem        FILE YEARS COMPARTMENTS   the same
//
// Numbers are pseudo-random but the same in every run, so that readers can be compared by their sums.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

namespace {

struct Lcg {
    std::uint64_t state = 88172645463325252ULL;
    std::uint32_t next()
    {
        state ^= state << 13;
        state ^= state >> 7;
        state ^= state << 17;
        return static_cast<std::uint32_t>(state >> 32);
    }
};
Lcg rng;

struct Out {
    std::FILE* f;
    std::string line;
    explicit Out(const char* name) : f(std::fopen(name, "wb"))
    {
        if (!f) {
            std::perror(name);
            std::exit(1);
        }
        std::setvbuf(f, nullptr, _IOFBF, 1 << 20);
    }
    ~Out() { std::fclose(f); }
    void put(const std::string& s)
    {
        std::fwrite(s.data(), 1, s.size(), f);
        std::fputc('\n', f);
    }
    void blank() { line.assign(160, ' '); }
    // Puts text at a 1-based column.
    void at(int column, const char* text)
    {
        const std::size_t n = std::strlen(text);
        if (line.size() < column - 1 + n)
            line.resize(column - 1 + n, ' ');
        std::memcpy(line.data() + column - 1, text, n);
    }
    void flush_line()
    {
        const auto end = line.find_last_not_of(' ');
        line.resize(end == std::string::npos ? 0 : end + 1);
        put(line);
        blank();
    }
};

// A right-justified number with exponent, "%*.*E" made fast: mantissa 1.000 to 9.999, exponent -12 to +1.
void sci(char* to, int width)
{
    const std::uint32_t r = rng.next();
    std::memset(to, ' ', width);
    if ((r & 15u) == 0) {
        std::memcpy(to + width - 9, "0.000E+00", 9);
        return;
    }
    const std::uint32_t m = 1000 + (r >> 8) % 9000;
    const int e = static_cast<int>((r >> 4) % 14) - 12;
    char* p = to + width - 9;
    p[0] = static_cast<char>('0' + m / 1000);
    p[1] = '.';
    p[2] = static_cast<char>('0' + m / 100 % 10);
    p[3] = static_cast<char>('0' + m / 10 % 10);
    p[4] = static_cast<char>('0' + m % 10);
    p[5] = 'E';
    p[6] = e < 0 ? '-' : '+';
    const int a = e < 0 ? -e : e;
    p[7] = static_cast<char>('0' + a / 10);
    p[8] = static_cast<char>('0' + a % 10);
}
// A right-justified fixed number with four decimals, 0 to 99.9999.
void fix(char* to, int width)
{
    const std::uint32_t v = rng.next() % 1000000;
    std::memset(to, ' ', width);
    char* p = to + width - 7;
    const std::uint32_t whole = v / 10000;
    p[0] = whole >= 10 ? static_cast<char>('0' + whole / 10) : ' ';
    p[1] = static_cast<char>('0' + whole % 10);
    p[2] = '.';
    std::uint32_t f = v % 10000;
    for (int i = 6; i >= 3; --i) {
        p[i] = static_cast<char>('0' + f % 10);
        f /= 10;
    }
}

void integer(char* to, int width, int v)
{
    std::memset(to, ' ', width);
    for (int i = width - 1; i >= 0 && (v > 0 || i == width - 1); --i) {
        to[i] = static_cast<char>('0' + v % 10);
        v /= 10;
    }
}

int days_of(int year)
{
    return year % 4 == 0 ? 366 : 365;
}

void plot(const char* name, int years, int series, int substances, int per_day)
{
    Out out(name);
    const int profile = 20 * substances, columns = series + profile;
    char buf[64];
    out.put(" ORVEL  simulation of the leaching of a demonstration substance");
    out.put(" ");
    out.put(" Location: Hamburg (H)     Crop: Maize");
    out.put(" Climate:  demonstration");
    out.put(" ");
    out.put(" Total content in soil");
    std::snprintf(buf, sizeof buf, "      %6d%6d", columns, profile);
    out.put(buf);
    static const char* codes[] = {"PRSN", "TETD", "INFL", "RUNF", "ESLS", "THET", "TEMP", "TPAP", "TDKF", "TDKQ",
                                  "TDKN", "TUPF", "TVOX", "TPST", "QPST", "NPST", "DKFX", "DKFQ", "DKFN", "PFLX"};
    out.blank();
    for (int i = 0; i < columns; ++i)
        out.at(13 + 10 * i, i < series ? codes[i % 20] : "TPSC");
    out.flush_line();
    std::string depths = "          ";
    for (int i = 0; i < columns; ++i) {
        std::snprintf(buf, sizeof buf, "%10d", i < series ? 100 : (i - series) % 20 + 1);
        depths += buf;
    }
    out.put(depths);
    out.blank();
    for (int i = 0; i < columns; ++i)
        out.at(12 + 10 * i, i < series ? "1.0E05" : "1.0E06");
    out.flush_line();
    out.put(std::string(20, '-'));
    std::string line(10 + 10 * static_cast<std::size_t>(columns), ' ');
    int day = 0;
    for (int y = 1; y <= years; ++y)
        for (int d = 0; d < days_of(y); ++d) {
            ++day;
            for (int h = 1; h <= per_day; ++h) {
                integer(line.data(), 6, day);
                integer(line.data() + 6, 3, h * 24 / per_day);
                for (int c = 0; c < columns; ++c)
                    sci(line.data() + 10 + 10 * c, 10);
                out.put(line);
            }
        }
}

enum Kind { annual, monthly, daily };
const char* const kind_word[] = {"ANNUAL", "MONTHLY", "DAILY"};

void water_block(Out& out, Kind kind, int year, int compartments)
{
    char buf[64];
    out.put("1");
    std::snprintf(buf, sizeof buf, "     %s WATER BALANCE  YEAR %d", kind_word[kind], year);
    out.put(buf);
    out.put("");
    out.blank();
    out.at(40, "PRECIPITATION");
    out.at(60, "IRRIGATION");
    out.at(78, "EVAPORATION");
    out.flush_line();
    out.put("     ---------------------------------------------------------------------------------------");
    out.blank();
    fix(out.line.data() + 42, 9);
    fix(out.line.data() + 60, 9);
    fix(out.line.data() + 78, 9);
    out.flush_line();
    out.put("     SNOWPACK");
    out.put("     --------");
    out.blank();
    fix(out.line.data() + 39, 15);
    out.flush_line();
    out.put("     RUNOFF");
    out.put("     ------");
    out.blank();
    fix(out.line.data() + 59, 10);
    out.flush_line();
    out.put("");
    out.put("   HORIZON   COMPARTMENT     STORAGE    LEACHING IN    TRANSPIRATION     LEACHING OUT       STORAGE      "
            "MOISTURE");
    out.put("                              (CM)          (CM)           (CM)             (CM)            (CM)        "
            "(CM/CM)");
    out.put("   -------   -----------  ---------  -------------  ---------------  ------------- ------------- "
            "-------------");
    for (int c = 1; c <= compartments; ++c) {
        out.line.assign(111, ' ');
        char* p = out.line.data();
        integer(p + 4, 3, 1 + c / 60);
        integer(p + 12, 3, c);
        fix(p + 22, 12);
        sci(p + 36, 13);
        sci(p + 57, 15);
        sci(p + 72, 13);
        fix(p + 85, 13);
        fix(p + 98, 13);
        out.put(out.line);
    }
    out.put("     SUMMARY FLUXES");
    out.blank();
    out.at(6, "RECHARGE BELOW CORE");
    fix(out.line.data() + 39, 10);
    out.flush_line();
    out.put("");
}

void chem_block(Out& out, Kind kind, int year, int compartments)
{
    char buf[64];
    out.put("1");
    std::snprintf(buf, sizeof buf, "     %s PESTICIDE BALANCE  YEAR %d", kind_word[kind], year);
    out.put(buf);
    out.put("");
    out.put("  RIZON PARTMENT    APPLICATION      STORAGE    LEACHING IN        DECAY        UPTAKE  VOLATILIZED   "
            "LEACHING OUT       STORAGE");
    out.put("  ----- --------   ------------ ------------ ------------ ------------ ------------ ------------  "
            "----------- ------------");
    for (int c = 1; c <= compartments; ++c) {
        out.line.assign(121, ' ');
        char* p = out.line.data();
        integer(p + 3, 3, 1 + c / 60);
        integer(p + 9, 3, c);
        for (int k = 0; k < 6; ++k)
            sci(p + 18 + 13 * k, 12);
        sci(p + 97, 11);
        sci(p + 109, 12);
        out.put(out.line);
    }
    out.put("    * DECAY FOR COMPARTMENT 1");
    static const char* totals[] = {"TOTAL PLANT UPTAKE OF PESTICIDE", "TOTAL DECAY OF PESTICIDE",
                                   "TOTAL VOLATILIZATION", "TOTAL RUNOFF", "PESTICIDE LEACHED BELOW CORE"};
    for (const char* t : totals) {
        out.blank();
        out.at(5, t);
        sci(out.line.data() + 39, 12);
        out.flush_line();
    }
    out.put("");
}

template <class Block> void balance(const char* name, int years, int compartments, Block block)
{
    static const int month_days[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    Out out(name);
    out.put(" ORVEL  demonstration output");
    for (int y = 1; y <= years; ++y) {
        for (int m = 0; m < 12; ++m) {
            const int n = month_days[m] + (m == 1 && y % 4 == 0);
            for (int d = 0; d < n; ++d)
                block(out, daily, y, compartments);
            block(out, monthly, y, compartments);
        }
        block(out, annual, y, compartments);
    }
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 4) {
        std::fputs("see the head of this file\n", stderr);
        return 2;
    }
    const std::string kind = argv[1];
    const int years = std::atoi(argv[3]), compartments = argc > 4 ? std::atoi(argv[4]) : 400;
    if (kind == "plot-daily")
        plot(argv[2], years, 20, 0, 1);
    else if (kind == "plot-hourly")
        plot(argv[2], years, 15, 9, 24);
    else if (kind == "wasser")
        balance(argv[2], years, compartments, water_block);
    else if (kind == "chem")
        balance(argv[2], years, compartments, chem_block);
    else
        return 2;
}
