// The rows of the benchmark by topic, each in a file of its own.
#ifndef BENCH_PEERS_ROWS_H
#define BENCH_PEERS_ROWS_H

void AddRecordRows();
void AddCalendarRows();
void AddTimeTextRows();
void AddDateTextRows();
void AddNumberRows();
void AddStringRows();
void AddLogRows();
void AddFileRows();
void AddProcessRows();

#endif
