// A one-line edit box that takes certain characters only.
#pragma once

#include <QLineEdit>

namespace tessel {

class KeyFilterEdit : public QLineEdit {
    Q_OBJECT
public:
    explicit KeyFilterEdit(QWidget* parent = nullptr);

    // Upper and lower case of each; empty for all characters. What is typed, pasted or set beside
    // these is dropped, and so is what already stands in the box.
    void setAllowedCharacters(const QString& characters);
    // Cuts what is put in, not what stood there. Beware of QLineEdit::setMaxLength: it would cut a
    // pasted text before its unwanted characters are dropped.
    void setMaximumLength(int characters);

signals:
    void enterPressed();
    void escapePressed();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    class Filter;
    Filter* m_filter;
};

} // namespace tessel
