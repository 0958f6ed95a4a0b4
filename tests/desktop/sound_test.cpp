// The sound channel, tested with SDL's disk driver, which writes the played samples to a file.
#define SDL_MAIN_HANDLED
#include <SDL.h>
#include <sys/stat.h>

#include "fixture.h"
#include "platform/desktop/devices/sound.h"

namespace vorn::desktop_tests {

struct sound : desktop_test {
    void SetUp() override
    {
        qputenv("SDL_AUDIODRIVER", "disk");
        qputenv("SDL_DISKAUDIOFILE", path("played").c_str());
        qputenv("SDL_DISKAUDIODELAY", "1");
    }
    void TearDown() override { qunsetenv("SDL_AUDIODRIVER"); }

    std::string path(const char* name) const { return folder.filePath(name).toStdString(); }

    // Writes a wave file. The samples of a mono file at the channel's rate are played unchanged.
    std::string wave(const char* name, const QByteArray& samples, quint32 rate = 44100, quint16 channels = 1)
    {
        const auto bytes = static_cast<quint32>(samples.size());
        const auto frame = static_cast<quint16>(2 * channels);
        QByteArray file;
        QDataStream out(&file, QIODevice::WriteOnly);
        out.setByteOrder(QDataStream::LittleEndian);
        out.writeRawData("RIFF", 4);
        out << 36 + bytes;
        out.writeRawData("WAVEfmt ", 8);
        out << quint32{16} << quint16{1} << channels << rate << rate * frame << frame << quint16{16};
        out.writeRawData("data", 4);
        out << bytes;
        write(name, file + samples);
        return path(name);
    }
    bool was_played(const QByteArray& samples) const
    {
        QFile f(folder.filePath("played"));
        return f.open(QIODevice::ReadOnly) && f.readAll().contains(samples);
    }
    // 16-bit samples, mostly rising by 1.
    static QByteArray ramp(int from, int number)
    {
        QByteArray samples;
        QDataStream out(&samples, QIODevice::WriteOnly);
        out.setByteOrder(QDataStream::LittleEndian);
        for (int i = 0; i < number; ++i) out << static_cast<qint16>(from + i % 1000);
        return samples;
    }
};

TEST_F(sound, plays_to_the_end_or_until_stopped)
{
    sound_channel channel;
    const QByteArray shot = ramp(2000, 5000);
    channel.play(wave("shot.wav", shot));
    EXPECT_TRUE(channel.playing()) << "play returns at once";
    ASSERT_TRUE(QTest::qWaitFor([&] { return !channel.playing(); }));
    EXPECT_TRUE(QTest::qWaitFor([&] { return was_played(shot); }));

    const QByteArray end = ramp(12000, 2000);
    channel.play(wave("burst.wav", ramp(-9000, 400000) + end));
    channel.stop();
    EXPECT_FALSE(channel.playing());
    QTest::qWait(30);
    EXPECT_FALSE(was_played(end));
}

TEST_F(sound, ignores_files_that_cannot_be_played)
{
    sound_channel channel;
    write("broken.wav", "RIFF\xff\xff\xff\x7fWAVEfmt and no more");
    const std::string days = wave("days.wav", ramp(0, 100000), 1);   // at 1 Hz it would play for 28 hours
    const std::string large = wave("large.wav", ramp(0, 90000));
    ASSERT_TRUE(QFile::resize(folder.filePath("large.wav"), 32'000'001));
    ASSERT_EQ(mkfifo(path("pipe.wav").c_str(), 0600), 0);   // a pipe that nobody writes to
    for (const std::string& file :
         {path("none.wav"), path("broken.wav"), path(""), std::string(), days, large, path("pipe.wav"),
          wave("never.wav", ramp(0, 9), 0), wave("fast.wav", ramp(0, 90000), 400'001),
          wave("crowd.wav", ramp(0, 90000), 44100, 9)}) {
        channel.play(file);
        EXPECT_FALSE(channel.playing()) << file;
    }
    channel.play(wave("shot.wav", ramp(0, 9000)));
    EXPECT_TRUE(channel.playing());
}

// For the channel, a device that the test has closed is the same as a disconnected one.
TEST_F(sound, replaces_a_lost_device_at_the_next_sound)
{
    sound_channel channel;
    channel.play(wave("long.wav", ramp(-20000, 900000)));
    ASSERT_TRUE(channel.playing());
    for (SDL_AudioDeviceID id = 2; id < 20; ++id) SDL_CloseAudioDevice(id);
    EXPECT_FALSE(channel.playing());
    channel.stop();
    const QByteArray second = ramp(5000, 3000);
    channel.play(wave("second.wav", second));
    EXPECT_TRUE(QTest::qWaitFor([&] { return was_played(second); }));
}

TEST_F(sound, is_silent_without_a_device_and_finds_one_that_comes_later)
{
    qputenv("SDL_AUDIODRIVER", "no such driver");
    sound_channel channel;
    channel.retry_seconds = 0.05;
    channel.play(wave("shot.wav", ramp(0, 9000)));
    EXPECT_FALSE(channel.playing());
    channel.stop();
    qputenv("SDL_AUDIODRIVER", "disk");
    channel.play(path("shot.wav"));
    EXPECT_FALSE(channel.playing()) << "too soon for another attempt";
    QTest::qWait(60);
    channel.play(path("shot.wav"));
    EXPECT_TRUE(channel.playing());
}

}   // namespace vorn::desktop_tests
