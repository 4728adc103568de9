#include <pybind11/numpy.h>
#include <pybind11/stl.h>
#include <pybind11/stl/filesystem.h>

#include <array>
#include <filesystem>
#include <limits>
#include <mutex>
#include <string>
#include <vector>

#include "Names.h"
#include "Parts.h"
#include "archive/ArchiveReader.h"
#include "engine/measured/MeasuredData.h"
#include "services/Files.h"

namespace vardel::python {

namespace {

using Path = std::filesystem::path;

// What is no UTF-8 in a text becomes replacement characters.
py::str Text(const std::string& text) {
    return py::reinterpret_steal<py::str>(
        PyUnicode_DecodeUTF8(text.data(), static_cast<Py_ssize_t>(text.size()), "replace"));
}

template <class Row>
auto TextOf(std::string Row::*field) {
    return [field](const Row& row) { return Text(row.*field); };
}

py::array_t<double> ArrayOf(const std::vector<double>& values) {
    return py::array_t<double>(static_cast<py::ssize_t>(values.size()), values.data());
}

// In the order of RunOrder::By.
constexpr std::array<const char*, 4> OrderNames = {"number", "time", "comment", "parameters"};
constexpr NameList OrderList{"order", OrderNames};

// An archive for several threads, one of which reads at a time.
class Archive {
public:
    explicit Archive(const Path& path) : reader_(std::in_place, path.string()) {}

    // read(reader), without the interpreter's lock.
    template <class Read>
    auto Reading(Read read) {
        const py::gil_scoped_release release;
        const std::scoped_lock one(mutex_);
        if (!reader_) throw ArchiveFault("The archive is closed.");
        return read(*reader_);
    }
    void Close() {
        const py::gil_scoped_release release;
        const std::scoped_lock one(mutex_);
        reader_.reset();
    }

private:
    std::mutex mutex_;
    std::optional<ArchiveReader> reader_;
};

std::vector<RunRow> RunsOf(Archive& archive, std::int64_t offset, std::optional<std::int64_t> limit,
                           const py::object& order, bool descending) {
    if (offset < 0 || limit.value_or(0) < 0)
        throw py::value_error("offset and limit must be 0 or more");
    const RunOrder by{static_cast<RunOrder::By>(PlaceOf(order, OrderList)), descending};
    return archive.Reading([&](const ArchiveReader& reader) {
        return reader.Runs(by, offset, limit.value_or(std::numeric_limits<std::int64_t>::max()));
    });
}

void AddRows(py::module_& module) {
    py::class_<RunRow>(module, "Run", "A run of an archive, without its curves.")
        .def_readonly("number", &RunRow::number)
        .def_property_readonly("model", TextOf(&RunRow::model))
        .def_property_readonly("parameters", TextOf(&RunRow::parameters), "The inputs in words.")
        .def_property_readonly("comment", TextOf(&RunRow::comment))
        .def_property_readonly("time", TextOf(&RunRow::time),
                               "When it was stored: local, YYYY-MM-DD hh:mm:ss.")
        .def_readonly("curve_count", &RunRow::curves)
        .def_readonly("complete", &RunRow::complete,
                      "Whether it has all its curves: a program that was killed leaves fewer.")
        .def("__repr__", [](const RunRow& run) {
            return "Run(number=" + std::to_string(run.number) +
                   ", time=" + std::string(py::repr(Text(run.time))) +
                   ", comment=" + std::string(py::repr(Text(run.comment))) +
                   ", complete=" + (run.complete ? "True" : "False") + ')';
        });
    py::class_<CurveRow>(module, "Curve", "A curve of a run.")
        .def_property_readonly("legend", TextOf(&CurveRow::legend),
                               "Model and area: 'ITU 529 Urban' of a loss, 'ITU 529 - Urban' of a\n"
                               "field strength.")
        .def_property_readonly(
            "distance", [](const CurveRow& curve) { return ArrayOf(curve.x); }, "km")
        .def_property_readonly(
            "value", [](const CurveRow& curve) { return ArrayOf(curve.y); }, "dB, or dB(µV/m)")
        .def_property_readonly(
            "third", [](const CurveRow& curve) { return ArrayOf(curve.z); },
            "The third number of each point, where points have three; else empty.")
        .def("__repr__", [](const CurveRow& curve) {
            return "Curve(legend=" + std::string(py::repr(Text(curve.legend))) + ", " +
                   std::to_string(curve.x.size()) + " points)";
        });
}

void AddArchive(py::module_& module) {
    using py::arg;
    py::register_exception<ArchiveFault>(module, "ArchiveError").doc() =
        "Why an archive, or a curve in it, cannot be read.";
    AddRows(module);
    py::class_<Archive>(module, "Archive",
                        "Archive(path)\n\n"
                        "An archive of graph runs, to be read; nothing is written to it. Rows are "
                        "read when\nthey are asked for. len(archive) is the number of runs. Raises "
                        "ArchiveError for\nwhatever cannot be read.")
        .def(py::init<const Path&>(), arg("path"), py::call_guard<py::gil_scoped_release>())
        .def("__len__",
             [](Archive& archive) {
                 return archive.Reading([](const auto& reader) { return reader.RunCount(); });
             })
        .def("__enter__", [](py::object archive) { return archive; })
        .def("__exit__", [](Archive& archive, const py::args&) { archive.Close(); })
        .def("close", &Archive::Close, "close()\n\nCloses the file. Closing again does nothing.")
        .def("runs", RunsOf, arg("offset") = 0, arg("limit") = py::none(), py::kw_only(),
             arg("order") = "number", arg("descending") = false,
             "runs(offset=0, limit=None, *, order='number', descending=False)\n\n"
             "A list of the runs from offset on, not more than limit, ordered by 'number',\n"
             "'time', 'comment' or 'parameters'.")
        .def(
            "run",
            [](Archive& archive, std::int64_t number) {
                return archive.Reading([=](const auto& reader) { return reader.Run(number); });
            },
            arg("number"), "run(number)\n\nThe run of a number, or None.")
        .def(
            "curves",
            [](Archive& archive, std::int64_t number) {
                return archive.Reading([=](const auto& reader) { return reader.Curves(number); });
            },
            arg("number"),
            "curves(number)\n\n"
            "A list of the curves of the run of that number, in the order of their storing.")
        .def(
            "curves_without_run",
            [](Archive& archive) {
                return archive.Reading(
                    [](const auto& reader) { return reader.CurvesWithoutRun(); });
            },
            "curves_without_run()\n\n"
            "The numbers under which a program that was killed left curves without their run.");
}

int RowsOf(const MeasuredSegment& table) {
    int rows = 0;
    while (table.RowValue[rows][0] != MeasuredEndMark) ++rows;
    return rows;
}

py::array_t<double> FieldStrengthsOf(const MeasuredSegment& table) {
    const int rows = RowsOf(table);
    py::array_t<double> values({rows, table.HeightCount});
    auto value = values.mutable_unchecked<2>();
    for (int row = 0; row < rows; ++row)
        for (int column = 0; column < table.HeightCount; ++column)
            value(row, column) = table.RowValue[row][column];
    return values;
}

MeasuredTable ReadMeasured(const Path& path) {
    MeasuredTable tables;
    std::optional<std::string> text;
    std::optional<MeasuredFault> fault;
    {
        const py::gil_scoped_release release;
        text = ReadWholeFile(path.string());
        if (text) fault = ParseMeasuredData(*text, tables);
    }
    if (!text) {
        PyErr_SetString(PyExc_OSError, ("cannot read " + path.string()).c_str());
        throw py::error_already_set();
    }
    if (fault)
        throw py::value_error(path.string() + ", line " + std::to_string(fault->line) + ": " +
                              fault->fault);
    return tables;
}

void AddMeasured(py::module_& module) {
    using Table = MeasuredSegment;
    py::class_<Table>(module, "MeasuredTable", "A table of measured field strengths.")
        .def_readonly("frequency", &Table::Frequency, "MHz")
        .def_property_readonly(
            "percent_time", [](const Table& table) { return table.PercentTime * 100.0; },
            "%; the file has a fraction")
        .def_property_readonly("area", TextOf(&Table::City))
        .def_readonly("mobile_height", &Table::MobileHeight, "m")
        .def_property_readonly(
            "base_height",
            [](const Table& table) {
                return py::array_t<double>(table.HeightCount, table.BaseHeight);
            },
            "m, of each column")
        .def_property_readonly(
            "distance",
            [](const Table& table) {
                return py::array_t<double>(RowsOf(table), table.RowDistance);
            },
            "km, of each row")
        .def_property_readonly("field_strength", FieldStrengthsOf,
                               "dB(µV/m): a row for each distance, a column for each base height");
    module.def("read_measured", ReadMeasured, py::arg("path"),
               "read_measured(path)\n\n"
               "The tables of a file of measured data, such as the program's measured.csv.\n"
               "Raises ValueError with the line where the file has a fault, and OSError where\n"
               "it cannot be read.");
}

}  // namespace

void AddFiles(py::module_& module) {
    AddArchive(module);
    AddMeasured(module);
}

}  // namespace vardel::python
