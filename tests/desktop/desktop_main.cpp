#include <gmock/gmock.h>

#include <QApplication>
#include <clocale>

int main(int count, char** arguments) {
    QApplication qt(count, arguments);
    std::setlocale(LC_ALL, "C");
    QApplication::setQuitOnLastWindowClosed(false);
    ::testing::InitGoogleMock(&count, arguments);
    return RUN_ALL_TESTS();
}
