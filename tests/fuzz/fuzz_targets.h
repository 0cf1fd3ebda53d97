#pragma once

class QByteArray;

/// Fuzz targets, one in each file of that name. Each takes any bytes whatever, and aborts the program when one of its
/// invariants does not hold.
namespace fuzz {

// The device plugin.
void listener(const QByteArray& bytes);
void scan(const QByteArray& bytes);
void connection(const QByteArray& bytes);
void configuration(const QByteArray& bytes);
void program_list(const QByteArray& bytes);
void selection(const QByteArray& bytes);
void panel_backend(const QByteArray& bytes);

// The serial driver.
void keep_alive(const QByteArray& bytes);

// The simulator.
void dongle(const QByteArray& bytes);
void trace_reader(const QByteArray& bytes);
void scenario_reader(const QByteArray& bytes);

// The application.
void configuration_file(const QByteArray& bytes);
void history_file(const QByteArray& bytes);

} // namespace fuzz
