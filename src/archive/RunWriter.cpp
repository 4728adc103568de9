#include "archive/RunWriter.h"

#include "archive/dbOperations.h"
#include "text/NumberText.h"

namespace vardel {

namespace {

constexpr std::int32_t PointsOfTwoValues = 2;
constexpr double NearestPoint = 1.0;  // km

}  // namespace

void WriteRun(dbOperations& archive, const ArchivedRun& run) {
    archive.AddModelRun("Okumura-Hata", run.parameters, run.comment, run.time, PointsOfTwoValues);
    const char* const separator = run.quantity == Quantity::Loss ? " " : " - ";
    for (const ModelNumber number : ComparedModels) {
        const Model& model = ModelOf(number);
        const CurveData points = ModelCurve(model, run.quantity, run.inputs, run.powerWatts,
                                            {NearestPoint, run.farthest});
        archive.AddDataSet(
            archive.CurrentRunId,
            std::string(model.name) + separator + std::string(Trimmed(run.inputs.area)),
            run.comment, points.LastPoint + 1, PointsOfTwoValues, points.Distances, points.Values,
            {});
    }
    archive.CloseArchive();
}

}  // namespace vardel
