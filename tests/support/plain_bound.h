#pragma once

#include "store/row_binding.h"

/// A box that a test writes in.
struct PlainBound : BoundBox {
    QString shown;
    bool changed = false;

    void show(const QString& text) override {
        shown = text;
        changed = false;
    }
    QString text() const override { return shown; }
    bool dataChanged() const override { return changed; }
    void setDataChanged(bool isChanged) override { changed = isChanged; }
    void type(const QString& text) {
        shown = text;
        changed = true;
    }
};
