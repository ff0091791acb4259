// Precompiled for every target with widgets.
#pragma once
#include "pch_core.h"

#include <QAbstractScrollArea>
#include <QBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QPainter>
#include <QPushButton>
#include <QStyle>
#include <QStyleOption>
#include <QWidget>
