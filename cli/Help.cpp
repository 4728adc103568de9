#include "cli/Help.h"

namespace vardel::cli {

std::string HelpText() {
    return R"(Usage: vardel-calc [OPTION]...             one path
       vardel-calc batch FILE [OPTION]...  a path for each row of a CSV file
       vardel-calc curve [OPTION]...       a path at many distances
       vardel-calc reach [OPTION]...       how far a station reaches
       vardel-calc log [FILE] [OPTION]...  lines of the report log
       vardel-calc heights [OPTION]...     effective heights over real ground
       vardel-calc contour [OPTION]...     how far a station reaches over it
       vardel-calc coverage [OPTION]...    the values over an area, as files
Radio path loss and field strength by ITU-R P.529, Davidson and COST 231.

The path; in batch and log FILE, what a column is missing for:
  --frequency MHZ       30 to 2000 (450)
  --distance D          in km or miles, up to 300 km (10 km)
  --base-height H       in m or ft, 20 to 2500 m (100 m)
  --mobile-height H     in m or ft, 1 to 30 m (1.5 m)
  --area NAME           Urban, Suburban or Open (Urban)
  --city NAME           Small/Medium or Large (Small/Medium)
  --percent-time P      of time, 1 to 99 (50), or --time
  --percent-locations P of locations, 1 to 99 (50), or --locations
  --power P             e.r.p. (1000 W)
  --power-unit UNIT     of --power: w, kw, dbm or dbw (w)
  --units SYSTEM        metric, or english for miles and feet (metric)

The output:
  --json                an object of JSON on each line (not for log)
  --header              the heads of the columns before the lines (log)
  --threads N           1 to 256, the output is the same (all processors)

curve:
  --start D, --end D, --step D   distances, in km or miles (1, 100, 1)

reach (with --distance also the power and the mast that it needs), contour,
and if wanted coverage, one of:
  --field-strength DBUV          wanted at the antenna, dB(µV/m)
  --received-power DBM           wanted at the receiver; with
    --antenna-gain DBI, --cable-loss DB   of the receiver (0, 0)
  --path-loss DB                 allowed between isotropic antennas

heights, contour and coverage, the ground:
  --site "LAT LON"      of the mast, in degrees, such as "49.8 6.1"
  --antenna H           above the ground, in m or ft
  --elevation FILE...   elevations, files or folders (package vardel-terrain)
  --ground H            of the site above the sea, in place of the data's
  --azimuths N          8 to 3600, from north on (36; contour: 360)
  --definition KEY      of the average: 3-16, 3-15, 3.2-16.1, p1546, or own
                        bounds in km such as 2-20 (3-16)
  --format NAME         of the contour: csv, geojson or kml (csv)

coverage, the area; without --elevation the base height is --base-height:
  --radius D            in km or miles, up to 300 km; or --bounds "S W N E"
  --resolution H        of a pixel, in m or ft (100 m)
  --grid NAME           site, utm or elevation (site)
  --model NAME          itu529, davidson or cost231 (all)
  --quantity NAME       field-strength, received-power or path-loss, where
                        nothing is wanted (field-strength)
  --output FILE.tif     a raster; --type double keeps all bits
  --picture FILE.png    a picture of --model, with a legend beside it
  --lines FILE.geojson  lines of equal value
  --interval DB         the steps of picture and lines (10)

batch: the first line names the columns, in any order and case: frequency_mhz,
distance_km or distance_mi, base_height_m or _ft, mobile_height_m or _ft, area,
city, percent_time, percent_locations, power_w, _kw, _dbm or _dbw. Others pass
through. In place of the distance there may be base_lat, base_lon, mobile_lat
and mobile_lon; with --elevation FILE the base height is found, too, from the
antenna's by --antenna or antenna_above_ground_m, and --definition (p1546).
FILE may be - for standard input. Commas or semicolons part fields; numbers
have a decimal point. Results are added to each row, for each model loss, field
strength and whether the model covers the path, and an error that says why a
row could not be calculated. Empty lines are left out.

  -h, --help            show this text and end
  --version             show the version and end

Exit status: 0 all is calculated, 1 reading or writing failed, 2 wrong usage,
3 all is written, but some rows have an error.
)";
}

std::string VersionText() { return "vardel-calc " VARDEL_VERSION "\n"; }

}  // namespace vardel::cli
