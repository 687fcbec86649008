// An engine that does nothing, to measure and test the job around it.
int main()
{
    return 0;
}
