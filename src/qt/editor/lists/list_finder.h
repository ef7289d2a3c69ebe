#pragma once

#include "controls/list_box.h"

#include <QFrame>
#include <functional>
#include <string>
#include <vector>

class QLabel;
class QLineEdit;

namespace headerdtc::qt {

class SelectionList;

// The items of a list in which something is found, the best first: those whose number or name is
// just that, then those that begin with it, then those that hold it anywhere; equally good ones in
// the order of the list. Case does not matter. "#12" is the twelfth item, whatever it says; an
// empty text finds nothing.
std::vector<int> findInList(const ListBox& list, const std::string& sought);

// Finds items of a list: an input line that opens over the list's lower edge when somebody types in
// the list. The best match is selected at once, as if the person had clicked it; Up and Down go to
// the others. The list keeps all its items.
//
// Where selecting an item changes the configuration (a translated field), nothing is selected while
// searching: the match is framed, and Enter adds it to the selection.
class ListFinder : public QFrame {
    Q_OBJECT

  public:
    struct Ways {
        // Runs an action on the control as if the person had done it.
        std::function<void(const std::function<void()>&)> act;
        bool marksAtOnce = true;
        // What Enter does with the marked items; if empty, Enter goes back to the list.
        std::function<void()> use;
    };

    // The list outlives the finder, which stands beside the view: to assistive technology a list
    // has items and nothing else.
    ListFinder(ListBox& list, SelectionList& view, Ways ways);

    // Opens with a text, in place of what was sought before.
    void open(const QString& text);

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    class Frame;

    void place();
    void find();
    void step(int by);
    void show(int match);
    void accept();
    void close(bool backToList);
    bool keyPressed(int key);

    ListBox& list_;
    SelectionList& view_;
    Ways ways_;
    QLineEdit* edit_;
    QLabel* count_;
    QWidget* frame_;
    std::vector<int> matches_;
    int current_ = -1;  // of matches_
};

}  // namespace headerdtc::qt
