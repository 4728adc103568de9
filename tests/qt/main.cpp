#include <gtest/gtest.h>

#include <QApplication>
#include <optional>

#include "qt/services/QtPlatform.h"
#include "support/FakePlatform.h"

namespace {

// Each test finds a state folder of its own, so that it takes up no log that another left.
class FreshState : public testing::EmptyTestEventListener {
    void OnTestStart(const testing::TestInfo&) override {
        folder_.emplace();
        qputenv("XDG_STATE_HOME", QByteArray::fromStdString(folder_->Path()));
    }
    void OnTestEnd(const testing::TestInfo&) override { folder_.reset(); }

    std::optional<vardel::ScratchFolder> folder_;
};

}  // namespace

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    // Nothing of the user's own is touched.
    const vardel::ScratchFolder settings;
    qputenv("XDG_CONFIG_HOME", QByteArray::fromStdString(settings.Path()));
    testing::UnitTest::GetInstance()->listeners().Append(new FreshState);
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    vardel::SetUpApplication(application);
    return RUN_ALL_TESTS();
}
