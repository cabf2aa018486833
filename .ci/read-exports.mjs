// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Reads what korvela-entries has exported with readers that others have written, jcampconverter and
// DuckDB, and compares it with the entries. Run by check-exports, in the folder of the readers.
//
// Usage: node read-exports.mjs <program> <folder of examples> <folder for files>

import assert from 'node:assert/strict';
import { execFileSync } from 'node:child_process';
import fs from 'node:fs';
import path from 'node:path';
import { createRequire } from 'node:module';
import { pathToFileURL } from 'node:url';

// The readers stand in the current folder, not beside this file.
const require = createRequire(path.join(process.cwd(), 'package.json'));
const { convert } = await import(pathToFileURL(require.resolve('jcampconverter')));
const { DuckDBInstance } = require('@duckdb/node-api');

const [program, examples, work] = process.argv.slice(2);
const database = await (await DuckDBInstance.create(':memory:')).connect();

async function rows(query) {
  return (await database.runAndReadAll(query)).getRowsJson();
}

function run(...words) {
  execFileSync(program, words, { stdio: ['ignore', 'inherit', 'inherit'] });
}

// Every dataset of the examples with the name of its entry.
function exampleDatasets() {
  const datasets = [];
  for (const file of fs.readdirSync(examples).filter((name) => name.endsWith('.json'))) {
    const entry = JSON.parse(fs.readFileSync(path.join(examples, file), 'utf8'));
    for (const key of Object.keys(entry).filter((name) => /^Dataset\d+$/.test(name))) {
      const slug = entry.Species.Name.normalize('NFKD').replace(/[^A-Za-z0-9]+/g, '-');
      datasets.push({ ...entry[key], cas: entry.Species.CAS, file: `${slug}-${key.slice(7)}` });
    }
  }
  assert.ok(datasets.length >= 6);
  return datasets;
}

function checkJcamp(datasets) {
  const folder = path.join(work, 'jcamp');
  run('export', '--format', 'jcamp', '--output', folder, examples);
  let points = 0;
  for (const dataset of datasets) {
    const text = fs.readFileSync(path.join(folder, `${dataset.file}.jdx`), 'utf8');
    assert.ok(text.split('\n').every((line) => [...line].length <= 80));
    const label = dataset.LineSpectrum ? '##PEAK TABLE=' : '##XYPOINTS=';
    assert.ok(text.includes(label));
    // The reader knows tables of pairs only under the label of other tables.
    const { flatten } = convert(text.replace('##XYPOINTS=', '##XYDATA='), {
      keepRecordsRegExp: /.*/,
    });
    assert.equal(flatten.length, 1);
    const [spectrum] = flatten[0].spectra;
    assert.deepEqual(Array.from(spectrum.data.x), dataset.E);
    assert.deepEqual(Array.from(spectrum.data.y), dataset.I);
    assert.equal(spectrum.xUnits, 'eV');
    assert.equal(flatten[0].info.CASREGISTRYNO, dataset.cas);
    points += dataset.E.length;
  }
  console.log(`JCAMP-DX: ${datasets.length} datasets, all ${points} points came back`);
}

async function checkCsv(datasets) {
  const folder = path.join(work, 'csv');
  run('export', '--format', 'csv', '--output', folder, examples);
  for (const dataset of datasets) {
    const file = path.join(folder, `${dataset.file}.csv`);
    const read = await rows(
      `select photon_energy_eV, intensity from read_csv('${file}', comment = '#')`);
    assert.deepEqual(read.map((row) => Number(row[0])), dataset.E);
    assert.deepEqual(read.map((row) => Number(row[1])), dataset.I);
  }
  console.log(`CSV: ${datasets.length} datasets read by DuckDB`);
}

// With pandas and R, each told that comments begin with "#", as it does by default in R's read.table.
function checkCsvElsewhere(datasets) {
  const folder = path.join(work, 'csv');
  const pandas = `import pandas, sys
for file in sys.argv[1:]:
    points = pandas.read_csv(file, comment="#")
    print(",".join(points.columns), len(points), *map(repr, points["photon_energy_eV"].tolist()))`;
  const r = `for (file in commandArgs(TRUE)) {
    points <- read.table(file, header = TRUE, sep = ",")
    cat(paste(names(points), collapse = ","), nrow(points), format(points$photon_energy_eV, digits = 15, trim = TRUE))
    cat("\\n") }`;
  const files = datasets.map((dataset) => path.join(folder, `${dataset.file}.csv`));
  for (const [name, words] of [['pandas', ['/usr/bin/python3', '-c', pandas]], ['R', ['Rscript', '-e', r]]]) {
    const lines = execFileSync(words[0], [...words.slice(1), ...files], { encoding: 'utf8' }).trim().split('\n');
    assert.equal(lines.length, datasets.length);
    datasets.forEach((dataset, i) => {
      const [heading, count, ...energies] = lines[i].split(' ');
      assert.equal(heading, 'photon_energy_eV,intensity');
      assert.equal(Number(count), dataset.E.length);
      assert.deepEqual(energies.map(Number), dataset.E);
    });
    console.log(`CSV: ${datasets.length} datasets read by ${name}`);
  }
}

async function checkExampleLines(datasets) {
  const file = path.join(work, 'examples.jsonl');
  run('export', '--format', 'jsonl', '--output', file, examples);
  const [[count, points, sum]] = await rows(
    `select count(*), sum(len(intensity)), sum(list_sum(photon_energy_ev)) from '${file}'`);
  assert.equal(Number(count), datasets.length);
  const energies = datasets.flatMap((dataset) => dataset.E);
  assert.equal(Number(points), energies.length);
  assert.ok(Math.abs(Number(sum) - energies.reduce((a, b) => a + b)) < 1e-6 * Number(sum));
  const lowest = await rows(
    `select distinct name, aie_ev from '${file}' where aie_ev < 13 order by aie_ev`);
  assert.deepEqual(lowest.map((row) => row[0]), ['nitric oxide', 'oxygen']);
  console.log(`JSON lines: ${count} examples with ${points} points queried by DuckDB`);
}

// Entries of three points each, without any meaning.
function makeEntries(folder, count) {
  fs.mkdirSync(folder);
  const text = (keys) => Object.fromEntries(keys.map((key) => [key, '']));
  for (let i = 1; i <= count; ++i) {
    const entry = {
      Type: 'Species v1',
      Species: { ...text(['Aliases', 'Formula', 'InChI', 'CAS', 'PubChem', 'AIE', 'VIE']),
        Name: `made ${i}`, Mass: i },
      Dataset1: { ...text(['Title', 'DOI']), SpectType: i % 6, LineSpectrum: i % 2 === 0,
        E: [10, 11, 12 + i / 1000], I: [i, 0.5, 1e-7] },
    };
    fs.writeFileSync(path.join(folder, `made${i}.json`), JSON.stringify(entry));
  }
}

async function checkMadeLines() {
  const count = 10000;
  const folder = path.join(work, 'made');
  makeEntries(folder, count);
  const file = path.join(work, 'made.jsonl');
  run('export', '--format', 'jsonl', '--output', file, folder);
  const [all] = await rows(
    `select count(*), sum(mass_amu), sum(intensity[1]), max(photon_energy_ev[3]) from '${file}'`);
  const sum = (count * (count + 1)) / 2;
  assert.deepEqual(all.map(Number), [count, sum, sum, 22]);
  const types = await rows(
    `select spectrum_type, count(*) from '${file}' where line_spectrum group by 1 order by 1`);
  assert.deepEqual(types.map((row) => [row[0], Number(row[1])]),
    [['FC simulation', 1667], ['TPES', 1667], ['ms-TPES', 1666]]);
  console.log(`JSON lines: ${count} made entries queried by DuckDB`);
}

const datasets = exampleDatasets();
checkJcamp(datasets);
await checkCsv(datasets);
checkCsvElsewhere(datasets);
await checkExampleLines(datasets);
await checkMadeLines();
