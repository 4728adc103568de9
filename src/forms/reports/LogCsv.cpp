#include "forms/reports/LogCsv.h"

#include <algorithm>
#include <array>
#include <initializer_list>

#include "engine/LogLine.h"
#include "engine/LogReader.h"
#include "text/CsvText.h"
#include "text/NumberText.h"

namespace vardel {

namespace {

constexpr const char* Heads =
    "kind,time,units,distance,frequency_mhz,base_height,mobile_height,area,city,percent_time,"
    "percent_locations,power_w,davidson_loss_db,cost231_loss_db,itu529_loss_db,itu529_field_dbuvm,"
    "davidson_field_dbuvm,cost231_field_dbuvm,davidson_in_range,cost231_in_range,itu529_in_range,"
    "note\r\n";
// Of the line's columns of results, for each model in the order of those heads.
constexpr std::array<std::array<std::size_t, 2>, 3> ColumnsOfModels = {{{0, 4}, {1, 5}, {2, 3}}};
constexpr std::size_t FieldsOfCalculation = 21;  // those before the note

void AddFields(std::string& row, std::initializer_list<std::string_view> fields) {
    for (const std::string_view field : fields) {
        AppendCsvField(row, field);
        row += ',';
    }
}

// "mm/dd/yyyy hh:mm am" as ISO 8601 has it, which sorts.
std::string IsoTime(std::string_view time) {
    const int hour = static_cast<int>(LeadingNumber(time.substr(11, 2))) % 12;
    const std::string day = FormatNumber(hour + (time.ends_with("pm") ? 12 : 0), "00");
    return std::string(time.substr(6, 4)) + '-' + std::string(time.substr(0, 2)) + '-' +
           std::string(time.substr(3, 2)) + 'T' + day + std::string(time.substr(13, 3));
}

// Walks along with the lines, which come in order.
class Underlines {
public:
    explicit Underlines(const RichText& log) : log_(log) {}

    bool At(std::size_t position) {
        while (log_.StretchEnd(stretch_) <= position) ++stretch_;
        return log_.Stretches()[stretch_].style.underline;
    }

private:
    const RichText& log_;
    std::size_t stretch_ = 0;
};

std::string WithoutPictures(std::string_view text) {
    std::string plain(text);
    for (std::size_t at = 0; (at = plain.find(RichText::PictureMark, at)) != std::string::npos;)
        plain.erase(at, RichText::PictureMark.size());
    return plain;
}

void AddCalculation(std::string& csv, const LoggedCalculation& line,
                    const std::array<bool, 6>& underlined) {
    const PathInputs& path = line.path;
    AddFields(
        csv,
        {"calculation", IsoTime(line.time), path.units == Units::English ? "English" : "Metric",
         ShortestText(path.distance), ShortestText(path.frequency), ShortestText(path.hb),
         ShortestText(path.hm), path.area, path.area == "Urban" ? path.city : std::string(),
         ShortestText(path.pctTime), ShortestText(path.pctLoc), ShortestText(path.powerWatts)});
    for (const std::string_view result : line.results) AddFields(csv, {result});
    for (const auto& [loss, field] : ColumnsOfModels)
        AddFields(csv, {underlined.at(loss) || underlined.at(field) ? "no" : "yes"});
    AppendCsvField(csv, WithoutPictures(line.rest));
    csv += "\r\n";
}

void AddNote(std::string& csv, std::string_view line) {
    const std::string note = WithoutPictures(line);
    if (Trimmed(note).empty() || note == LogColumnHeader) return;
    csv += "note" + std::string(FieldsOfCalculation, ',');
    AppendCsvField(csv, note);
    csv += "\r\n";
}

}  // namespace

std::string LogCsv(const RichText& log) {
    std::string csv = Heads;
    const std::string_view text = log.Text();
    Underlines underlines(log);
    for (std::size_t begin = 0; begin < text.size();) {
        const std::size_t end = std::min(text.find("\r\n", begin), text.size());
        const std::string_view line = text.substr(begin, end - begin);
        if (const auto calculation = ReadLogLine(line)) {
            std::array<bool, 6> underlined{};
            for (std::size_t i = 0; i < underlined.size(); ++i)
                underlined.at(i) = underlines.At(
                    static_cast<std::size_t>(calculation->results.at(i).data() - text.data()));
            AddCalculation(csv, *calculation, underlined);
        } else {
            AddNote(csv, line);
        }
        begin = end + 2;
    }
    return csv;
}

}  // namespace vardel
