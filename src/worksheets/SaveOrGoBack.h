#pragma once

#include <QMetaObject>

/// Saves what a form holds ahead of another row's showing. When that fails, `goBack` shows the row again that
/// could not be saved, once the event at hand is done, and the error goes on to be told.
template <class Form, class GoBack> void SaveOrGoBack(Form& form, GoBack goBack)
{
    try {
        form.SaveChanges();
    } catch (...) {
        QMetaObject::invokeMethod(&form, goBack, Qt::QueuedConnection);
        throw;
    }
}
