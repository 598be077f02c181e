#pragma once

// What nearly every test uses, so that tests need not list it one by one.
#include "CoinHelpers.h"

#include <Inventor/SoInteraction.h>

#include <QSignalSpy>
#include <QTest>
#include <QtWidgets>

/// Warnings that a test fails on: all, but for what Qt's offscreen platform says of itself when windows are
/// shown.
inline QRegularExpression unexpectedWarnings()
{
    return QRegularExpression(QStringLiteral("^(?!This plugin does not support )"));
}

/// The main function of a test program: Coin and the application made ready, one test object run, everything
/// released again, so that a leak checker sees only what the tested code left behind.
#define KLV_TEST_MAIN(TestClass)                                                                             \
    int main(int argc, char** argv)                                                                          \
    {                                                                                                        \
        SoDB::init();                                                                                        \
        SoInteraction::init();                                                                               \
        int result = 0;                                                                                      \
        {                                                                                                    \
            QApplication application(argc, argv);                                                            \
            TestClass test;                                                                                  \
            result = QTest::qExec(&test, argc, argv);                                                        \
        }                                                                                                    \
        SoDB::finish();                                                                                      \
        return result;                                                                                       \
    }
