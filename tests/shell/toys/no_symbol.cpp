// A library without createWidget.
int nothingToSee();

int nothingToSee()
{
    return 0;
}
