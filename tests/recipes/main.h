#pragma once

#include <QGuiApplication>
#include <QQuickWindow>
#include <QTest>

/// The main function of the tests of recipes.
template<class Test>
int runRecipes(int argc, char **argv)
{
    QQuickWindow::setSceneGraphBackend(QSGRendererInterface::Software);
    QGuiApplication application(argc, argv);
    Test test;
    QTEST_SET_MAIN_SOURCE_PATH
    return QTest::qExec(&test, argc, argv);
}
