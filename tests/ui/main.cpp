#include <gtest/gtest.h>

#include <QApplication>
#include <memory>

namespace {

/// One application for all tests of a run. Made when tests begin: listing them needs none.
class ApplicationOfTests final : public testing::Environment {
public:
    void SetUp() override {
        // Nobody looks, and no test may open windows on a person's screen.
        qputenv("QT_QPA_PLATFORM", "offscreen");
        application_ = std::make_unique<QApplication>(count_, arguments_);
    }
    void TearDown() override { application_.reset(); }

private:
    char name_[8] = "test_ui";
    char* arguments_[2] = {name_, nullptr};
    int count_ = 1;
    std::unique_ptr<QApplication> application_;
};

}  // namespace

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    testing::AddGlobalTestEnvironment(std::make_unique<ApplicationOfTests>().release());
    return RUN_ALL_TESTS();
}
